#include "plot/TPlotHotArea.h"

TPlotHotArea::TPlotHotArea(const QRectF &rect, TPlotHotAreaType type, int subType, bool flag)
    : THotArea(rect)
    , fType(type)
    , fSubType(subType)
    , fFlag(flag)
{
}

TPlotHotArea::TPlotHotArea(const QRectF &rect, int index, TPlotHotAreaType type, int subType)
    : THotArea(rect)
    , fType(type)
    , fSubType(subType)
    , fIndex(index)
{
}

TPlotHotArea::TPlotHotArea(const QRectF &rect, const QUuid &id, TPlotHotAreaType type, int subType)
    : THotArea(rect)
    , fType(type)
    , fSubType(subType)
    , fId(id)
{
}

TPlotHotArea::TPlotHotArea(const QRectF &rect, int index, TPlotHotAreaType type, const QUuid &id)
    : THotArea(rect)
    , fType(type)
    , fIndex(index)
    , fId(id)
{
}

bool TPlotHotArea::isHVSubType(const TPlotHotArea &area, bool horizontal)
{
    return area.type() == axis && area.subType() == (horizontal ? cHorzSubType : cVertSubType);
}
