#include "widgets/TBaseTableViewModel.h"

#include "settings/TNumberFormat.h"
#include "widgets/GuiUtils.h"
#include "widgets/TTableProxy.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int cMaxDecimals = 8;

bool isSame(const QVector<TTableColumn> &one, const QVector<TTableColumn> &other)
{
    return std::equal(
        one.begin(), one.end(), other.begin(), other.end(),
        [](const TTableColumn &a, const TTableColumn &b) { return a.fKey == b.fKey && a.fIsShown == b.fIsShown; });
}

} // namespace

TBaseTableViewModel::TBaseTableViewModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

int TBaseTableViewModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : fIds.size();
}

int TBaseTableViewModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : fColumns.size();
}

int TBaseTableViewModel::columnOf(const QString &key) const
{
    for (int i = 0; i < fColumns.size(); ++i) {
        if (fColumns.at(i).fKey == key)
            return i;
    }
    return -1;
}

QVariant TBaseTableViewModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= fColumns.size())
        return QVariant();
    const TTableColumn &column = fColumns.at(section);
    switch (role) {
    case Qt::DisplayRole:
        return column.fTitle;
    case TTableProxy::cKeyRole:
        return column.fKey;
    case Qt::ToolTipRole:
        return column.fTip.isEmpty() ? QVariant() : Utils::Gui::dataTip(column.fTip);
    case Qt::TextAlignmentRole:
        return int((column.fKind == TTableColumn::cNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    default:
        return QVariant();
    }
}

int TBaseTableViewModel::decimalsAt(int row, int column) const
{
    return fDecimals >= 0 ? fDecimals : std::clamp(autoDecimals(row, column), 0, cMaxDecimals);
}

QString TBaseTableViewModel::shownText(int row, int column) const
{
    const QVariant value = number(row, column);
    return value.isValid() ? TNumberFormat::fixed(value.toDouble(), decimalsAt(row, column)) : text(row, column);
}

QVariant TBaseTableViewModel::data(const QModelIndex &place, int role) const
{
    if (!place.isValid() || place.row() >= fIds.size() || place.column() >= fColumns.size())
        return QVariant();
    const int row = place.row();
    const int column = place.column();
    const TTableColumn::TKind kind = fColumns.at(column).fKind;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return kind == TTableColumn::cRadio ? QVariant() : shownText(row, column);
    case Qt::ToolTipRole: {
        const QString tip = toolTip(row, column);
        return tip.isEmpty() ? QVariant() : Utils::Gui::dataTip(tip);
    }
    case Qt::TextAlignmentRole:
        return int((kind == TTableColumn::cNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::CheckStateRole: // copied tables say yes or no
        return kind == TTableColumn::cRadio ? QVariant(isRadioOn(row, column) ? Qt::Checked : Qt::Unchecked)
                                            : QVariant();
    case TTableProxy::cTypesetRole:
        return isTypeset(column);
    case cRadioRole:
        return kind == TTableColumn::cRadio ? QVariant(isRadioOn(row, column)) : QVariant();
    case TTableProxy::cNumberRole:
        return number(row, column);
    case cPadRole:
        return kind == TTableColumn::cNumber && number(row, column).isValid()
                   ? QVariant(fMaxDecimals.value(column) - decimalsAt(row, column))
                   : QVariant();
    default:
        return QVariant();
    }
}

bool TBaseTableViewModel::setData(const QModelIndex &place, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !(flags(place) & Qt::ItemIsEditable))
        return false;
    // a number that was only looked at keeps the digits that are not shown
    if (value.toString() == shownText(place.row(), place.column()))
        return false;
    return edit(place.row(), place.column(), value.toString());
}

Qt::ItemFlags TBaseTableViewModel::flags(const QModelIndex &place) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(place);
    return place.isValid() && isEditable(place.row(), place.column()) ? flags | Qt::ItemIsEditable : flags;
}

void TBaseTableViewModel::setDecimals(int decimals)
{
    fDecimals = std::clamp(decimals, cAutoDecimals, cMaxDecimals);
    measureColumns();
    if (!fIds.isEmpty())
        emit dataChanged(index(0, 0), index(fIds.size() - 1, fColumns.size() - 1));
}

void TBaseTableViewModel::measureColumns()
{
    fMaxDecimals.fill(0, fColumns.size());
    for (int column = 0; column < fColumns.size(); ++column) {
        for (int row = 0; fColumns.at(column).fKind == TTableColumn::cNumber && row < fIds.size(); ++row) {
            if (number(row, column).isValid())
                fMaxDecimals[column] = qMax(fMaxDecimals.at(column), decimalsAt(row, column));
        }
    }
}

void TBaseTableViewModel::replaceRows(const QVector<TTableColumn> &columns, const QVariantList &ids,
                                      const std::function<void()> &swap)
{
    if (ids == fIds && isSame(columns, fColumns)) {
        swap();
        fColumns = columns;
        measureColumns();
        if (!columns.isEmpty())
            emit headerDataChanged(Qt::Horizontal, 0, columns.size() - 1);
        if (!ids.isEmpty())
            emit dataChanged(index(0, 0), index(ids.size() - 1, columns.size() - 1));
        return;
    }
    beginResetModel();
    swap();
    fColumns = columns;
    fIds = ids;
    measureColumns();
    endResetModel();
}

int TBaseTableViewModel::decimalsOfDigits(double value, int digits)
{
    if (value == 0.0 || !std::isfinite(value))
        return std::clamp(digits - 1, 0, cMaxDecimals);
    return std::clamp(digits - 1 - int(std::floor(std::log10(std::abs(value)))), 0, cMaxDecimals);
}

int TBaseTableViewModel::decimalsOfStep(double step)
{
    if (step == 0.0 || !std::isfinite(step))
        return 0;
    return std::clamp(int(std::ceil(-std::log10(std::abs(step)))) + 1, 0, cMaxDecimals);
}
