#pragma once

#include <QRectF>

namespace Utils {
namespace Geometry {

/// What two rectangles share, taken as normalised. Rectangles of height or width 0 meet others too, so a result of
/// height 0 is a meeting and is not null. A single common point is none; it and no meeting give a null rectangle.
QRectF intersect(const QRectF &a, const QRectF &b);

} // namespace Geometry
} // namespace Utils
