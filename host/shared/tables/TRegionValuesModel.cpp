#include "tables/TRegionValuesModel.h"

#include "settings/TNumberFormat.h"
#include "widgets/GuiUtils.h"
#include "widgets/TTableProxy.h"

#include <cmath>

namespace {

constexpr int cDigits = 6;

} // namespace

void TRegionValuesModel::setValues(const TRegionValues &values, const QString &xTitle)
{
    beginResetModel();
    fValues = values;
    fXTitle = xTitle;
    endResetModel();
}

void TRegionValuesModel::setDecimals(int decimals)
{
    fDecimals = decimals;
    if (rowCount() > 0)
        emit dataChanged(index(0, cX), index(rowCount() - 1, columnCount() - 1));
}

int TRegionValuesModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : fValues.rows().size();
}

int TRegionValuesModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : cFirstRegion + fValues.regions().size();
}

QVariant TRegionValuesModel::number(double value, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (!std::isfinite(value))
        return QVariant();
    if (role == TTableProxy::cNumberRole)
        return value;
    if (role != Qt::DisplayRole)
        return QVariant();
    return fDecimals < 0 ? TNumberFormat::shown(QString::number(value, 'g', cDigits))
                         : TNumberFormat::fixed(value, fDecimals);
}

QVariant TRegionValuesModel::data(const QModelIndex &place, int role) const
{
    if (!place.isValid() || place.row() >= rowCount())
        return QVariant();
    const TRegionValues::TRow &row = fValues.rows().at(place.row());
    if (place.column() == cX)
        return number(row.fX, role);
    if (place.column() >= cFirstRegion)
        return number(row.fValues.value(place.column() - cFirstRegion), role);
    if (role == Qt::DecorationRole)
        return row.fColor;
    if (role == Qt::ToolTipRole)
        return Utils::Gui::dataTip(row.fTitle);
    return role == Qt::DisplayRole ? QVariant(row.fTitle) : QVariant();
}

QVariant TRegionValuesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return QAbstractTableModel::headerData(section, orientation, role);
    if (role == Qt::DecorationRole && section >= cFirstRegion)
        return fValues.regions().at(section - cFirstRegion).color;
    if (role == TTableProxy::cPlainTitleRole && section >= cFirstRegion)
        return fValues.plainHeader(section - cFirstRegion);
    if (role != Qt::DisplayRole)
        return QVariant();
    if (section == cTitle)
        return tr("Spectrum");
    return section == cX ? fXTitle : fValues.header(section - cFirstRegion);
}
