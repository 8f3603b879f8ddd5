#include "TYrexBaselinePointsModel.h"

#include "TYrexMultipointSession.h"
#include "settings/TNumberFormat.h"

#include <cmath>

namespace {

constexpr int cDigits = 6;

QString shownNumber(double value)
{
    return TNumberFormat::shown(QString::number(value, 'g', cDigits));
}

} // namespace

void TYrexBaselinePointsModel::setSession(TYrexMultipointSession *session, int unit, const QString &unitText)
{
    beginResetModel();
    fSession = session;
    fUnit = unit;
    fUnitText = unitText;
    fRows = session ? session->points().size() : 0;
    endResetModel();
}

void TYrexBaselinePointsModel::refresh()
{
    const int rows = fSession ? fSession->points().size() : 0;
    if (rows != fRows) {
        beginResetModel();
        fRows = rows;
        endResetModel();
    } else if (rows > 0) {
        emit dataChanged(index(0, 0), index(rows - 1, cColumns - 1));
    }
}

QStringList TYrexBaselinePointsModel::kindNames()
{
    return {tr("Free"), tr("Average"), tr("Smooth")};
}

int TYrexBaselinePointsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : fRows;
}

int TYrexBaselinePointsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : cColumns;
}

QVariant TYrexBaselinePointsModel::data(const QModelIndex &index, int role) const
{
    if (!fSession || !index.isValid() || index.row() >= fSession->points().size())
        return QVariant();
    const TYrexBaselinePoint &point = fSession->points().at(index.row());
    if (role == Qt::TextAlignmentRole && index.column() != cKind)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::EditRole && index.column() == cKind)
        return point.kind;
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return QVariant();
    switch (index.column()) {
    case cNumber:
        return index.row() + 1;
    case cX:
        return shownNumber(fSession->xOf(point.x, fUnit));
    case cY:
        return shownNumber(point.y);
    default:
        return kindNames().value(point.kind - 1, tr("Mean"));
    }
}

QVariant TYrexBaselinePointsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    switch (section) {
    case cNumber:
        return QStringLiteral("#");
    case cX:
        return fUnitText.isEmpty() ? QStringLiteral("x") : QString("x [%1]").arg(fUnitText);
    case cY:
        return QStringLiteral("y");
    default:
        return tr("kind");
    }
}

Qt::ItemFlags TYrexBaselinePointsModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == cNumber ? flags : flags | Qt::ItemIsEditable;
}

bool TYrexBaselinePointsModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!fSession || role != Qt::EditRole || !index.isValid() || index.row() >= fSession->points().size())
        return false;
    const TYrexBaselinePoint point = fSession->points().at(index.row());
    int row = index.row();
    double number = 0.0;
    if (index.column() == cKind) {
        fSession->setKind(row, value.toInt());
    } else if (value.toString() == data(index, Qt::EditRole).toString() ||
               !TNumberFormat::read(value.toString(), number)) {
        return false; // nothing was typed, or no number
    } else if (index.column() == cX) {
        const double place = std::round(fSession->positionOf(number, fUnit));
        if (!(place >= 0.0) || place >= fSession->stage().size())
            return false;
        fSession->beginDrag(); // one step
        fSession->removePoint(row);
        row = fSession->addPoint(place, point.y, point.kind);
        fSession->endDrag();
    } else {
        fSession->beginDrag();
        fSession->setKind(row, TYrexMultipointSession::cFree);
        fSession->movePoint(row, point.x, number);
        fSession->endDrag();
    }
    emit edited(row);
    return true;
}
