#pragma once

#include <QVariantMap>
#include <QVector>

class TYrexSpectrum;

/// Subtracts a baseline of one value per point from y[0..n-1], in place.
///
/// The curve's end values are replaced by their neighbours first, since a curve through control points is 0 there.
/// Transmittance (10) and percent transmittance (11) are corrected towards full scale: y + top - baseline; any other
/// unit by y - baseline. False, with nothing changed, for a baseline of another length.
bool yrexSubtractBaseline(double *y, int n, QVector<double> baseline, int yUnit);

namespace TYrexMultipointBaseline {

/// Subtracts the action's "mpbaseline" from the present data; a list of the wrong length is ignored. With `isPreview`
/// the preview curve is cleared and the set-up under way dropped.
void applyMultipoint(TYrexSpectrum &spectrum, const QVariantMap &action, bool isPreview);

/// The chain's step, and what stands in its place while the baseline is only previewed.
void apply(TYrexSpectrum &spectrum, const QVariantMap &action);
void preview(TYrexSpectrum &spectrum, const QVariantMap &action);

} // namespace TYrexMultipointBaseline
