#pragma once

#include <QVariantMap>

class TYrexSpectrum;

/// The smoothing of a spectrum's y values, in place, and its four methods. The y unit stays.
namespace TYrexSmoothing {

/// The chain's step: smooths the present data by the action's "smoothmethod"; another value leaves them. A filter that
/// cannot be computed, or a spectrum of too few points for it, leaves them too and is logged, since one such spectrum
/// must not end a batch.
void smooth(TYrexSpectrum &spectrum, const QVariantMap &action);

/// Exponential smoothing there and back. With q = (1 + L^2 - sqrt(1 + 2 L^2)) / L^2 = 1 / (1 + r^2 + r sqrt(r^2 + 2)),
/// r = 1 / |L|, every value becomes (1 - q) y + q p, p the one before it, first forwards up to the third last point,
/// then, from the last point, which is bridged, backwards down to the second one. The last but one misses the way
/// forward and the first one the way back.
///
/// Any L but NaN is good: 0 smooths nothing, infinity levels all. NaN and infinite values spread over the spectrum.
/// Cost: O(n).
void exponentialSmooth(double *y, double lambda, int n);

/// Savitzky-Golay of that polynomial degree over `window` points, an even number raised by one; see TYrexSavGol. False,
/// with y untouched, when there are no such coefficients: a degree below 0 or not below the window, or sums beyond the
/// range of double.
bool savitzkyGolay(double *y, int n, int window, int degree);

/// The median-modified Wiener filter over 7 points; see Utils::Algorithm::mmwfFilter. Single precision. False, with y
/// untouched, for values that are no finite floats.
bool medianWiener(double *y, int n);

/// Non-local means of the values over their span, `mode` of cNlmBlockwise, cNlmFastPixelwise or, for any other number,
/// pixelwise; see Utils::Algorithm::nonLocalMeansDenoising and nlmPixelwise. The noise factor steers blockwise alone,
/// but 0 switches every mode off. Single precision. Without a span y stays to the bit. False, with y untouched, for
/// fewer than cNlmSmallestWidth points in a pixelwise mode, and for values that are no finite floats.
bool nonLocalMeans(double *y, int n, double noiseFactor, int mode);

} // namespace TYrexSmoothing
