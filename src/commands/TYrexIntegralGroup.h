#pragma once

#include <QRectF>
#include <QVector>

class TCanvasYrexSpectrum;
class TYrexIntegrationRegion;

/// What a change of one spectrum's integrals carries along in a stack.
namespace YrexIntegralGroup {

/// The spectra that share the class of the one at `current` where the stack is shown in groups, those that are hidden
/// left out; without groups the spectrum alone; none where the index is of no spectrum.
QVector<int> spectraOf(const TCanvasYrexSpectrum &item, int current);
/// The region as a rectangle of height 0 in point coordinates.
QRectF rectOf(const TYrexIntegrationRegion &region);

} // namespace YrexIntegralGroup
