#pragma once

#include "canvas/TCanvasItem.h"
#include "canvas/TCanvasItemList.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QPointer>
#include <QVector>

class IStackedItemCtx;
class IStackedItemsEdits;
class T1DStackedPlotProperties;
class TCommand;
class TCommandHistory;

/// The spectra of an item in display order, hidden ones included. Edits become commands on the history; without a
/// history, and for columns that only a plug-in can edit while it gives no commands, the table is read-only.
class TStackedItemsTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum TColumn {
        cActive,
        cShow,
        cUse,
        cNumber,
        cSwatch,
        cTitle,
        cClass,
        cValue,
        cFactor,
        cOffset,
        cDate, // from here on hidden at first
        cPoints,
        cFormat,
        cColumnCount
    };
    enum TSortKey { cByTitle, cByValue, cByClass, cByDate };

    explicit TStackedItemsTableModel(QObject *parent = nullptr);

    /// The item may go at any time; null for none. The same item again does nothing.
    void setItem(TCanvasItem *item);
    TCanvasItem *item() const { return fItem.get(); }
    /// Neither is owned; null for none.
    void setHistory(TCommandHistory *history) { fHistory = history; }
    void setEdits(IStackedItemsEdits *edits);
    IStackedItemsEdits *edits() const { return fEdits; }
    /// IStackedItemsEdits::TEdit.
    bool canEdit(int edit) const;
    /// Reads the item anew.
    void refresh();
    /// Of factors, offsets and values; -1 for as many as they need.
    void setDecimals(int decimals);
    /// As it is stored; the swatch shows it as the paper takes it.
    QColor color(int row) const;
    /// Whether all titles end in a number that "Values from Titles" could take.
    bool titlesEndInNumbers() const;
    /// Lets the number at the end of each title be the spectrum's value, as one step.
    void takeValuesFromTitles();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &place, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &place) const override;
    bool setData(const QModelIndex &place, const QVariant &value, int role) override;
    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &places) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

    /// The index in the stack of the spectrum in a row; -1 for none.
    int indexOfRow(int row) const { return fOrder.value(row, -1); }
    QStringList classNames() const;
    void activate(int row);
    void setColor(int row, const QColor &color);
    void showAll();
    void deleteSpectra(const QVector<int> &rows);
    /// Moves the rows, kept together in their order, so that they stand before the row `target`.
    void moveRowsTo(QVector<int> rows, int target);
    void sortBy(TSortKey key);
    /// Texts from a row on downwards; false, with nothing done, when one is no number.
    bool pasteValues(int row, const QStringList &texts);
    void resetFactorsAndOffsets();
    int displayMode() const;
    void setDisplayMode(int mode);
    int colorSetting() const;
    void setColorSetting(int setting);
    void splitByClass();

private:
    IStackedItemCtx *stack() const;
    QVector<int> rowsOfStack() const;
    bool isOddGroup(int index) const;
    bool isOnDarkPaper() const;
    QVariant numberOf(int index, int column) const;
    QString numberText(int index, int column) const;
    void measureColumns();
    QMap<int, double> numbersOfTitles() const;
    const T1DStackedPlotProperties *stackedProperties() const;
    bool push(TCommand *command);
    TCanvasItemList items() const;
    QVariant textOf(int index, int column) const;
    QString titleOf(int index) const;
    QVariant factOf(int index, int column) const;
    bool isEditable(int index, int column) const;
    bool setCheck(int index, int column, bool checked);
    bool setText(int index, int column, const QString &text);
    bool setNumber(int index, int column, double number);
    void editProperty(const QString &key, const QVariant &value);

    TSecurePtr<TCanvasItem> fItem;
    QPointer<TPage> fPage;
    TCommandHistory *fHistory = nullptr;
    IStackedItemsEdits *fEdits = nullptr;
    QVector<int> fOrder;           // index of each row
    QHash<int, int> fMostDecimals; // of the numbers in a column
    int fDecimals = -1;
};
