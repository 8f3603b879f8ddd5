#pragma once

#include <QPointF>

class QPainter;
class QRectF;
class QString;
class TCanvasYrexSpectrum;
class TYrexSpectrum;

/// Where marks stand, which know their places in points only.
namespace YrexMarkPlaces {

/// The x value at a place in points, in a unit.
double xAt(const TYrexSpectrum &spectrum, double place, int unit);
/// The x of the item, in canvas units, at a place in points of the active spectrum; NaN without a plot and where the
/// place is hidden. Places beyond the scale go on along the axis.
double canvasX(const TCanvasYrexSpectrum &item, double place);
/// Draws a text on a light plate at a place of the view, moved to stay within `room`.
void paintTip(QPainter &painter, const QString &text, const QPointF &place, const QRectF &room);

} // namespace YrexMarkPlaces
