#pragma once

#include <QVariantMap>

class TYrexSpectrum;

/// The chain's automatic baseline: computed from the present data, subtracted or only shown.
namespace TYrexAutoBaseline {

/// The chain's step. "alsbaselinealgorithm" chooses arpls (77), Utils::Matrix::iarplss (78), both with the smoothing
/// factor 10^"alsbaselinelog10lambda" and the stop "alsbaselineratio", or snipBC (81), which takes the first key as it
/// stands. Peaks of transmittance (10) and percent transmittance (11) point down: there the data are turned over, and
/// corrected they have their top at full scale. With "alsbaselineshowonly" the curve becomes the spectrum's preview and
/// the data stay; otherwise a preview is dropped. An unknown algorithm, a y unit that has no baseline, and data with a
/// NaN or an infinity leave the data as they are, without a preview.
void autoBaseline(TYrexSpectrum &spectrum, const QVariantMap &action);

/// Finds "alsbaselinelog10lambda" for an action with "alsbaselineautolambda" and puts it into the map. Picks peaks, to
/// keep them out of the search, and leaves the spectrum without any, manual ones included. Without peaks the factor is
/// 5. The criterion of the search stays in the spectrum's processing parameters.
void searchLambda(TYrexSpectrum &spectrum, QVariantMap &action);

/// Asymmetrically reweighted penalised least squares: z[0..n-1] is the baseline of y[0..n-1], in its unit, by a second
/// order Whittaker smoother with the smoothing factor lambda and the weights 1 / (1 + exp(2 (d - (2 s - m)) / s)); d
/// are the residuals, m and s mean and sample standard deviation of the negative ones. At most 50 iterations; they end
/// when the norm of the weights' change falls below `ratio` times their norm, and when no point has any weight left.
/// Where s is 0 the weights are the limit: 1 below, 0 above, one half in between. z = y for n < 3, for a lambda that is
/// not above 0, and for data with a NaN or an infinity. Time O(n) an iteration, and no allocation in it.
///
/// Reference: S.-J. Baek et al., Analyst 140 (2015) 250-257, doi 10.1039/c4an01061b.
void arpls(int n, const double *y, double *z, double lambda, double ratio);

/// What the chain uses of a factor that the search found: small ones are raised, those of inverted data twice as much.
double raisedFactor(double factor, bool inverted);

} // namespace TYrexAutoBaseline
