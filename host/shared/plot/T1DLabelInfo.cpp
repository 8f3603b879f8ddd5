#include "plot/T1DLabelInfo.h"

QRectF T1DLabelInfo::originalRect(bool vertical) const
{
    const double boxWidth = vertical ? height : width;
    const double boxHeight = vertical ? width : height;
    const double foot = below ? anchor.y() : anchor.y() - cFootDistance;
    return QRectF(anchor.x() - boxWidth / 2, foot - boxHeight, boxWidth, boxHeight);
}
