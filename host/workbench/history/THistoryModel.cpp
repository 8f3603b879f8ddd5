#include "THistoryModel.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "commands/TCommandHistory.h"
#include "history/THistoryCommand.h"
#include "widgets/GuiUtils.h"

#include <QFont>
#include <QLocale>
#include <QPalette>
#include <QUndoStack>
#include <algorithm>

namespace {

/// The time of day, or for earlier days the date; `whole` gives both.
QString timeText(const QDateTime &time, bool whole)
{
    const QDateTime local = time.toLocalTime();
    if (!local.isValid())
        return QString();
    const bool isToday = local.date() == QDate::currentDate();
    return local.toString(whole ? "yyyy-MM-dd hh:mm:ss" : isToday ? "hh:mm" : "d MMM yy");
}

} // namespace

void THistoryModel::setDocument(TDocument *document)
{
    fDocument = document;
    refresh();
}

void THistoryModel::setViewStepsShown(bool shown)
{
    fViewSteps = shown;
    refresh();
}

void THistoryModel::setFilter(const QString &item, const QString &text)
{
    fItem = item;
    fText = text;
    refresh();
}

THistoryModel::TRow THistoryModel::liveRow(int index) const
{
    const TCommandHistory &history = fDocument->history();
    const TCommandHistory::TStep step = history.step(index);
    TRow row;
    row.fText = step.fText;
    row.fFirst = index;
    row.fLast = index + 1;
    row.fIsView = step.fIsViewOnly;
    row.fIsUndone = index >= fDocument->history().stack()->index();
    for (const THistoryCommand *entry : step.fEntries) {
        row.fEntries.append(
            {entry->time(), entry->description(), entry->text(), entry->itemId(), entry->isUndone(), entry->params()});
        row.fTime = entry->time();
        if (!entry->itemName().isEmpty() && !row.fItems.contains(entry->itemName()))
            row.fItems.append(entry->itemName());
    }
    return row;
}

THistoryModel::TRow THistoryModel::openedRow() const
{
    TRow row;
    row.fKind = cOpened;
    row.fText = fDocument->storedHistory().isEmpty() ? tr("New Document") : tr("Document Opened");
    return row;
}

THistoryModel::TRow THistoryModel::earlierRow(const TStoredHistoryEntry &entry) const
{
    TRow row;
    row.fKind = cEarlier;
    row.fText = entry.fDescription;
    row.fTime = entry.fTime;
    row.fIsUndone = entry.fUndone;
    row.fEntries.append(entry);
    const TCanvasItem *item = fDocument->item(entry.fItemId);
    if (item && !item->historyName().isEmpty())
        row.fItems.append(item->historyName());
    return row;
}

/// Whether the next step joins the row.
bool THistoryModel::fold(TRow &into, const TRow &next) const
{
    if (fViewSteps || !into.fIsView || !next.fIsView || into.fItems != next.fItems)
        return false;
    if (into.fEntries.value(0).fItemId != next.fEntries.value(0).fItemId) // another item of the same name
        return false;
    into.fText = tr("View");
    into.fLast = next.fLast;
    into.fTime = next.fTime;
    into.fIsUndone = next.fIsUndone && into.fIsUndone;
    into.fEntries += next.fEntries;
    return true;
}

bool THistoryModel::isShown(const TRow &row) const
{
    if (row.fKind == cOpened)
        return true;
    if (!fItem.isEmpty() && !row.fItems.contains(fItem))
        return false;
    const auto holds = [this](const QString &text) { return text.contains(fText, Qt::CaseInsensitive); };
    if (fText.isEmpty() || holds(row.fText) || holds(row.fItems.join(' ')))
        return true;
    const auto paramHolds = [holds](const THistoryParameter &param) {
        return holds(param.fName) || holds(param.fValue.toString()) || holds(param.fText);
    };
    return std::any_of(row.fEntries.begin(), row.fEntries.end(), [holds, paramHolds](const TStoredHistoryEntry &entry) {
        return holds(entry.fDescription) || std::any_of(entry.fParams.begin(), entry.fParams.end(), paramHolds);
    });
}

void THistoryModel::refresh()
{
    beginResetModel();
    fRows.clear();
    fItemNames.clear();
    if (fDocument) {
        QVector<TRow> rows; // oldest first
        for (const TStoredHistoryEntry &entry : fDocument->storedHistory())
            rows.append(earlierRow(entry));
        rows.append(openedRow());
        for (int i = 0; i < fDocument->history().stack()->count(); ++i) {
            TRow row = liveRow(i);
            if (row.fIsView && !fViewSteps)
                row.fText = tr("View");
            if (!fold(rows.last(), row))
                rows.append(row);
        }
        for (auto row = rows.crbegin(); row != rows.crend(); ++row) {
            fItemNames += row->fItems;
            if (isShown(*row))
                fRows.append(*row);
        }
    }
    fItemNames.removeDuplicates();
    fItemNames.sort(Qt::CaseInsensitive);
    endResetModel();
}

int THistoryModel::stackIndex(int row) const
{
    if (row < 0 || row >= fRows.size() || fRows.at(row).fKind == cEarlier)
        return -1;
    return fRows.at(row).fLast;
}

QList<int> THistoryModel::doneSteps(const QList<int> &rows) const
{
    QList<int> steps;
    for (const int row : rows) {
        if (row < 0 || row >= fRows.size() || fRows.at(row).fKind != cStep)
            continue;
        for (int step = fRows.at(row).fFirst; step < qMin(fRows.at(row).fLast, fDocument->history().count()); ++step)
            steps.append(step);
    }
    std::sort(steps.begin(), steps.end());
    return steps;
}

bool THistoryModel::isPresent(const TRow &row) const
{
    const int index = fDocument ? fDocument->history().stack()->index() : -1;
    if (row.fKind == cOpened)
        return index == 0;
    return row.fKind == cStep && index > row.fFirst && index <= row.fLast;
}

int THistoryModel::presentRow() const
{
    const auto row =
        std::find_if(fRows.begin(), fRows.end(), [this](const TRow &candidate) { return isPresent(candidate); });
    return row == fRows.end() ? -1 : int(row - fRows.begin());
}

bool THistoryModel::isRule(int row) const
{
    return row >= 0 && row < fRows.size() && fRows.at(row).fKind == cOpened;
}

QList<TStoredHistoryEntry> THistoryModel::entries(int row) const
{
    return row >= 0 && row < fRows.size() ? fRows.at(row).fEntries : QList<TStoredHistoryEntry>();
}

QVariant THistoryModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= fRows.size())
        return QVariant();
    const TRow &row = fRows.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        if (index.column() == cDescription)
            return row.fText;
        if (index.column() == cItem)
            return row.fItems.join(", ");
        return timeText(row.fTime, false);
    case Qt::ToolTipRole:
        if (index.column() == cTime)
            return timeText(row.fTime, true);
        return row.fKind == cEarlier ? tr("Done before the document was opened; it cannot be undone.")
                                     : Utils::Gui::dataTip(row.fText);
    case Qt::FontRole: {
        QFont font;
        font.setBold(isPresent(row));
        return font;
    }
    case Qt::ForegroundRole:
        if (row.fIsUndone)
            return QPalette().brush(QPalette::Disabled, QPalette::Text);
        return QVariant();
    default:
        return QVariant();
    }
}

QVariant THistoryModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    switch (section) {
    case cDescription:
        return tr("Description");
    case cItem:
        return tr("Item");
    case cTime:
        return tr("Time");
    default:
        return QVariant();
    }
}
