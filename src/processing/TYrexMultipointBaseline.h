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

/// The chain's step: subtracts the action's "mpbaseline" from the present data. A list of the wrong length is ignored.
void yrexApplyMultipoint(TYrexSpectrum &spectrum, const QVariantMap &action);
/// The same while the baseline is only previewed: the preview curve is cleared and the set-up under way dropped.
void yrexPreviewMultipoint(TYrexSpectrum &spectrum, const QVariantMap &action);
