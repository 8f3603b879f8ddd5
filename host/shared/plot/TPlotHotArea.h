#pragma once

#include "plot/THotArea.h"
#include <QUuid>

/// A hot area of a plot: what it belongs to (type, subtype) and which one of these it is (index or identifier).
class TPlotHotArea : public THotArea
{
public:
    enum TPlotHotAreaType {
        none = 0,
        axis = 1,
        stackedTitle = 2,
        title = 3,
        curve = 4,
        cutMark = 5,
        integral = 6,
        baselinePoint = 7,
        peak = 15,
        daRegion = 20
    };
    static constexpr int cHorzSubType = 1; // of an axis
    static constexpr int cVertSubType = 2;

    TPlotHotArea() = default;
    TPlotHotArea(const QRectF &rect, TPlotHotAreaType type, int subType, bool flag = false);
    TPlotHotArea(const QRectF &rect, int index, TPlotHotAreaType type, int subType);
    TPlotHotArea(const QRectF &rect, const QUuid &id, TPlotHotAreaType type, int subType);
    TPlotHotArea(const QRectF &rect, int index, TPlotHotAreaType type, const QUuid &id);

    TPlotHotAreaType type() const { return fType; }
    int subType() const { return fSubType; }
    /// -1 when it has none.
    int index() const { return fIndex; }
    const QUuid &id() const { return fId; }
    bool flag() const { return fFlag; }
    bool isValid() const { return fType != none; }

    /// Whether the area is that of the horizontal (vertical) axis.
    static bool isHVSubType(const TPlotHotArea &area, bool horizontal);

private:
    TPlotHotAreaType fType = none;
    int fSubType = 0;
    int fIndex = -1;
    QUuid fId;
    bool fFlag = false;
};
