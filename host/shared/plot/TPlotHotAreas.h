#pragma once

#include "plot/TPlotHotArea.h"
#include <QVector>

/// The hot areas of one draw, in the order in which they were drawn.
class TPlotHotAreas
{
public:
    static const TPlotHotArea nullArea;
    static constexpr double cDefReach = 5.0; // canvas units, without a view

    void append(const TPlotHotArea &area) { fAreas.append(area); }
    void clear() { fAreas.clear(); }
    /// Drops the areas of a type.
    void clearBy(TPlotHotArea::TPlotHotAreaType type);
    QVector<TPlotHotArea> hotAreasBy(TPlotHotArea::TPlotHotAreaType type) const;
    int count() const { return fAreas.size(); }
    bool isEmpty() const { return fAreas.isEmpty(); }
    /// nullArea for an index out of range.
    const TPlotHotArea &at(int index) const;
    /// The area appended last, to set its priority; there must be one.
    TPlotHotArea &last() { return fAreas.last(); }

    /// By how much areas are grown when they are hit, in canvas units.
    void setReach(double reach) { fReach = reach; }
    /// Of the areas that hold the point the one with the highest priority, among equals the one appended last; nullArea
    /// when none does. Areas with an empty rectangle never answer.
    const TPlotHotArea &hit(const QPointF &pos) const;
    /// Indices of all areas that hold the point, in drawing order.
    QVector<int> hitList(const QPointF &pos) const;
    /// Indices of all areas with that identifier.
    QVector<int> hitList(const QUuid &id) const;

private:
    bool holds(const TPlotHotArea &area, const QPointF &pos) const;

    QVector<TPlotHotArea> fAreas;
    double fReach = cDefReach;
};
