#pragma once

#include <QPointF>
#include <QUuid>
#include <QVector>

class TCanvasYrexSpectrum;
class TYrexSpectrum;

/// A peak or an integral of the active spectrum.
struct TYrexMarkPlace
{
    QUuid fId;
    bool fIsPeak;
    double fCanvasX; // its middle, canvas units of the item; NaN where the place is hidden
};

/// Where marks stand, which know their places in points only.
namespace YrexMarkPlaces {

/// The x value at a place in points, in a unit.
double xAt(const TYrexSpectrum &spectrum, double place, int unit);
/// The x of the item, in canvas units, at a place in points of the active spectrum; NaN without a plot and where the
/// place is hidden. Places beyond the scale go on along the axis.
double canvasX(const TCanvasYrexSpectrum &item, double place);
/// Peaks, then integrals, both from left to right, as keys walk through them.
QVector<TYrexMarkPlace> inOrder(const TCanvasYrexSpectrum &item);

} // namespace YrexMarkPlaces
