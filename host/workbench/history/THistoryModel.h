#pragma once

#include "canvas/TStoredHistoryEntry.h"

#include <QAbstractTableModel>
#include <QPointer>
#include <QStringList>
#include <QVector>

class TDocument;

/// The steps of a document, newest first: those that can be undone or done again, below them the state in which the
/// document was opened, and below that the entries that came with it.
class THistoryModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum TColumn { cDescription, cItem, cTime, cColumns };

    explicit THistoryModel(QObject *parent = nullptr)
        : QAbstractTableModel(parent)
    {
    }

    void setDocument(TDocument *document);
    TDocument *document() const { return fDocument; }
    /// Reads the history anew.
    void refresh();
    /// Without them consecutive view steps of one item make one row.
    void setViewStepsShown(bool shown);
    /// Rows of which a cell or a parameter holds the text, and of that item where it is not empty; the state in which
    /// the document was opened stays.
    void setFilter(const QString &item, const QString &text);

    /// The names of all items that steps speak of, sorted.
    QStringList itemNames() const { return fItemNames; }
    /// The index of the undo stack at which the document is in the state of a row; -1 where it cannot be reached.
    int stackIndex(int row) const;
    /// The steps that rows stand for and that are done, as places of the undo stack in their order.
    QList<int> doneSteps(const QList<int> &rows) const;
    /// The row of the present state; -1 where it is filtered out.
    int presentRow() const;
    /// What a row stands for: one entry for each command of the step.
    QList<TStoredHistoryEntry> entries(int row) const;
    /// Whether a row is the rule between the steps of this session and those of earlier ones.
    bool isRule(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : fRows.size(); }
    int columnCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : int(cColumns); }
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    enum TKind { cStep, cOpened, cEarlier };

    struct TRow
    {
        TKind fKind = cStep;
        QString fText;
        QStringList fItems;
        QDateTime fTime;
        int fFirst = 0; // indices of the undo stack at which the steps of the row begin and end
        int fLast = 0;
        bool fIsView = false;
        bool fIsUndone = false;
        QList<TStoredHistoryEntry> fEntries;
    };

    TRow liveRow(int index) const;
    TRow openedRow() const;
    TRow earlierRow(const TStoredHistoryEntry &entry) const;
    bool fold(TRow &into, const TRow &next) const;
    bool isShown(const TRow &row) const;
    bool isPresent(const TRow &row) const;

    QPointer<TDocument> fDocument;
    QVector<TRow> fRows;
    QStringList fItemNames;
    QString fItem;
    QString fText;
    bool fViewSteps = false;
};
