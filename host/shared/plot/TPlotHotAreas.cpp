#include "plot/TPlotHotAreas.h"
#include <algorithm>

const TPlotHotArea TPlotHotAreas::nullArea;

void TPlotHotAreas::clearBy(TPlotHotArea::TPlotHotAreaType type)
{
    const auto isOfType = [type](const TPlotHotArea &area) { return area.type() == type; };
    fAreas.erase(std::remove_if(fAreas.begin(), fAreas.end(), isOfType), fAreas.end());
}

QVector<TPlotHotArea> TPlotHotAreas::hotAreasBy(TPlotHotArea::TPlotHotAreaType type) const
{
    QVector<TPlotHotArea> result;
    for (const TPlotHotArea &area : fAreas) {
        if (area.type() == type)
            result.append(area);
    }
    return result;
}

const TPlotHotArea &TPlotHotAreas::at(int index) const
{
    return index >= 0 && index < fAreas.size() ? fAreas.at(index) : nullArea;
}

bool TPlotHotAreas::holds(const TPlotHotArea &area, const QPointF &pos) const
{
    return !area.rect().isEmpty() && area.rect().adjusted(-fReach, -fReach, fReach, fReach).contains(pos);
}

const TPlotHotArea &TPlotHotAreas::hit(const QPointF &pos) const
{
    const TPlotHotArea *best = &nullArea;
    for (const TPlotHotArea &area : fAreas) {
        if (holds(area, pos) && (best == &nullArea || area.priority() >= best->priority()))
            best = &area;
    }
    return *best;
}

QVector<int> TPlotHotAreas::hitList(const QPointF &pos) const
{
    QVector<int> result;
    for (int i = 0; i < fAreas.size(); ++i) {
        if (holds(fAreas.at(i), pos))
            result.append(i);
    }
    return result;
}

QVector<int> TPlotHotAreas::hitList(const QUuid &id) const
{
    QVector<int> result;
    for (int i = 0; i < fAreas.size(); ++i) {
        if (fAreas.at(i).id() == id)
            result.append(i);
    }
    return result;
}
