#pragma once

#include <QRectF>
#include <QVector>

class TCanvasYrexSpectrum;
class TYrexIntegrationRegion;

/// What a change of one spectrum's integrals carries along in a stack.
namespace YrexIntegralGroup {

/// The spectra that share the class of the current one where the stack is shown in groups, those that are hidden left
/// out; without groups the current spectrum alone, which may be none.
QVector<int> spectraOf(const TCanvasYrexSpectrum &item);
/// The region as a rectangle of height 0 in point coordinates.
QRectF rectOf(const TYrexIntegrationRegion &region);

} // namespace YrexIntegralGroup
