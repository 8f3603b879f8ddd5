#include "widgets/TTableProxy.h"

TTableProxy::TTableProxy(QObject *parent)
    : QSortFilterProxyModel(parent)
{
    fCollator.setNumericMode(true);
    fCollator.setCaseSensitivity(Qt::CaseInsensitive);
    setDynamicSortFilter(true);
}

void TTableProxy::setFilter(const QString &text)
{
    fFilter = text;
    invalidateFilter();
}

void TTableProxy::cycleSort(int column)
{
    if (column != sortColumn())
        sort(column, Qt::AscendingOrder);
    else if (sortOrder() == Qt::AscendingOrder)
        sort(column, Qt::DescendingOrder);
    else
        sort(-1);
    invalidateFilter(); // of headings
}

bool TTableProxy::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    for (const int role : {int(cNumberRole), int(Qt::CheckStateRole)}) {
        const QVariant a = left.data(role);
        const QVariant b = right.data(role);
        if (a.isValid() && b.isValid())
            return a.toDouble() < b.toDouble();
    }
    return fCollator.compare(left.data().toString(), right.data().toString()) < 0;
}

bool TTableProxy::isHeading(int row, const QModelIndex &parent) const
{
    return sourceModel()->index(row, 0, parent).data(cHeadingRole).toBool();
}

bool TTableProxy::headingIsSeen(int row, const QModelIndex &parent) const
{
    if (sortColumn() >= 0 || fFilter.isEmpty())
        return sortColumn() < 0;
    for (int below = row + 1; below < sourceModel()->rowCount(parent) && !isHeading(below, parent); ++below) {
        if (holdsFilter(below, parent))
            return true;
    }
    return false;
}

bool TTableProxy::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    if (isHeading(row, parent))
        return headingIsSeen(row, parent);
    if (fFilter.isEmpty())
        return sortColumn() >= 0 || !sourceModel()->index(row, 0, parent).data(cFoldedRole).toBool();
    return holdsFilter(row, parent);
}

bool TTableProxy::holdsFilter(int row, const QModelIndex &parent) const
{
    for (int column = 0; column < sourceModel()->columnCount(parent); ++column) {
        if (sourceModel()->index(row, column, parent).data().toString().contains(fFilter, Qt::CaseInsensitive))
            return true;
    }
    return false;
}
