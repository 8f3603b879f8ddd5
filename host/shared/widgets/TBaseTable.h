#pragma once

#include <QVariant>
#include <QVector>
#include <QWidget>

class QHBoxLayout;
class QLabel;
class QModelIndex;
class QPoint;
class QTableView;
class TBaseTableViewModel;
class TColumnMemory;
class TTableProxy;
class WTableTools;

/// A table of a dock or a page: sorting, filter, columns as the user arranged them, copy and export, keys. What its
/// rows are and what happens to them is the model's and the owner's affair. Rows in arguments are those of the model.
class TBaseTable : public QWidget
{
    Q_OBJECT

public:
    /// `name` is that of the table in the settings. The model is not owned and lives longer.
    TBaseTable(const QString &name, TBaseTableViewModel *model, QWidget *parent = nullptr);

    /// What stands there without rows: the action that makes some.
    void setEmptyText(const QString &text);
    QTableView *view() const { return fView; }
    TTableProxy *proxy() const { return fProxy; }
    WTableTools *tools() const { return fTools; }
    /// The left side of the tool row, for what the table's owner adds.
    QHBoxLayout *toolRow() const { return fToolRow; }

    /// Ascending.
    QVector<int> selectedRows() const;
    QVariantList selectedIds() const;
    /// Selects the rows of these ids and shows the first; tells nobody.
    void selectIds(const QVariantList &ids);
    int currentRow() const;
    /// Opens the editor of a cell; of the first cell of the row that has one when this has none.
    void editCell(int row, int column);
    /// Says at a cell why it cannot be, and shakes the table.
    void refuse(const QModelIndex &place, const QString &reason);

signals:
    /// The user selected other rows.
    void rowsChosen();
    /// The keyboard came to a row.
    void rowReached(int row);
    /// A double click on a row, or Return.
    void rowActivated(int row);
    /// A click into a cell, or the space bar there.
    void cellClicked(const QModelIndex &place);
    void deleteWanted(const QVector<int> &rows);
    void menuWanted(const QPoint &globalPos);
    /// The table is wanted as an item on the page. Its button is there once somebody listens.
    void placeWanted();

protected:
    void connectNotify(const QMetaMethod &signal) override;

private:
    void makeView();
    void makeHeader();
    void makeKeys();
    void showState();
    void arrangeColumns();
    void keepSelection();
    void giveSelectionBack();
    void onHeaderMenu(const QPoint &point);
    void goTo(int row);
    void shake();

    TBaseTableViewModel *fModel;
    TTableProxy *fProxy;
    QTableView *fView;
    WTableTools *fTools;
    TColumnMemory *fColumns;
    QHBoxLayout *fToolRow;
    QLabel *fEmpty;
    QVariantList fKeptIds;
    QVariant fKeptCurrent;
    int fKeptColumn = 0;
    bool fIsQuiet = false; // the program selects
};
