#include "utils/GeometryUtils.h"

#include <QPointF>

namespace Utils {
namespace Geometry {

QRectF intersect(const QRectF &a, const QRectF &b)
{
    const QRectF first = a.normalized();
    const QRectF second = b.normalized();
    const QPointF from(qMax(first.left(), second.left()), qMax(first.top(), second.top()));
    const QPointF to(qMin(first.right(), second.right()), qMin(first.bottom(), second.bottom()));
    if (!(from.x() <= to.x() && from.y() <= to.y())) // the negation also refuses NaN
        return QRectF();
    const QRectF common(from, to);
    return common.isNull() ? QRectF() : common;
}

} // namespace Geometry
} // namespace Utils
