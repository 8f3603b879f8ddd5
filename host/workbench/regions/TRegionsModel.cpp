#include "TRegionsModel.h"

#include "settings/TNumberFormat.h"

#include <QColor>

namespace {

constexpr int cDigits = 6;

} // namespace

void TRegionsModel::setRegions(const QVector<TDARegion> &shown)
{
    if (shown.size() == fRegions.size()) { // the current place and the selection stay
        fRegions = shown;
        if (!shown.isEmpty())
            emit dataChanged(index(0, 0), index(rowCount() - 1, cColumnCount - 1));
        return;
    }
    beginResetModel();
    fRegions = shown;
    endResetModel();
}

QString TRegionsModel::kindName(int kind)
{
    return kind == TDARegion::cHighestPeak ? tr("Highest Peak") : tr("Sum");
}

int TRegionsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : fRegions.size();
}

int TRegionsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(cColumnCount);
}

Qt::ItemFlags TRegionsModel::flags(const QModelIndex &place) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(place);
    return place.isValid() && place.column() != cColor ? flags | Qt::ItemIsEditable : flags;
}

QVariant TRegionsModel::data(const QModelIndex &place, int role) const
{
    if (!place.isValid() || place.row() >= rowCount())
        return QVariant();
    const TDARegion &region = fRegions.at(place.row());
    const auto limit = [](double value) { return TNumberFormat::shown(QString::number(value, 'g', cDigits)); };
    if (place.column() == cColor && role == Qt::DecorationRole)
        return region.color;
    if (place.column() == cColor && role == Qt::ToolTipRole)
        return tr("Click to choose the colour.");
    if (role == Qt::TextAlignmentRole && place.column() >= cFrom)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::EditRole && place.column() == cKind)
        return region.kind;
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return QVariant();
    switch (place.column()) {
    case cName:
        return region.name;
    case cKind:
        return kindName(region.kind);
    case cFrom:
        return limit(region.from);
    case cTo:
        return limit(region.to);
    default:
        return QVariant();
    }
}

QVariant TRegionsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < cName || section >= cColumnCount)
        return QVariant();
    const QStringList titles{tr("Name"), tr("Kind"), tr("From"), tr("To")};
    return titles.at(section - cName);
}

bool TRegionsModel::setName(TDARegion &region, const QString &name) const
{
    for (const TDARegion &other : fRegions) {
        if (other.id != region.id && other.name == name)
            return false;
    }
    region.name = name;
    return !name.isEmpty();
}

bool TRegionsModel::setData(const QModelIndex &place, const QVariant &value, int)
{
    if (!place.isValid() || place.row() >= rowCount())
        return false;
    if (place.column() >= cFrom && value.toString() == place.data().toString())
        return true; // as it is shown, which has not all of its digits
    TDARegion region = fRegions.at(place.row());
    bool isTaken = true;
    switch (place.column()) {
    case cColor:
        region.color = value.value<QColor>();
        isTaken = region.color.isValid();
        break;
    case cName:
        isTaken = setName(region, value.toString().trimmed());
        break;
    case cKind:
        region.kind = value.toInt();
        break;
    default:
        isTaken = TNumberFormat::read(value.toString(), place.column() == cFrom ? region.from : region.to);
        break;
    }
    if (isTaken && !(region == fRegions.at(place.row())))
        emit edited(place.row(), region, place.column() >= cFrom);
    return isTaken;
}
