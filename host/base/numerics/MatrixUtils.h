#pragma once

#include "utils/TOperationResult.h"

#include <vector>

namespace Utils {
namespace Matrix {

/// Baselines of y[0..n-1] in z[0..n-1], in the unit of y, and the search of their smoothing factors.
///
/// The abscissa is the point index. y and z must not overlap. Input that has no baseline, too few points (n < 3), a NaN
/// or an infinity in y, or a factor out of range, gives z = y and a code other than 0.
enum TBaselineError : int { cTooFewPoints = 1, cNotFinite = 2, cBadFactor = 3, cConstant = 4 };

/// How a factor did in a search: 0 for the best that a witness saw, 1 for the worst, in the mean over the witnesses.
struct TFactorScore
{
    double fFactor;
    double fScore;
};

/// Improved asymmetrically reweighted penalised least squares: a Whittaker smoother of second order with the smoothing
/// factor lambda > 0 and the weights (1 - u / sqrt(1 + u^2)) / 2, u = exp(t) (d - 2 sigma) / sigma, in iteration t; d
/// are the residuals, sigma is the sample standard deviation of the negative ones. At most 50 iterations; they end when
/// the norm of the weights' change falls below `ratio` times their norm, when fewer than two residuals are negative or
/// sigma is nothing but rounding, and from the second one on when sigma falls by less than 1 %.
///
/// Reference: J. Ye et al., Appl. Opt. 59 (2020) 10933-10943, doi 10.1364/AO.404863. The stop by sigma is an addition:
/// the threshold of 2 sigma also cuts off points of the baseline, each of which lowers sigma again, until a stiff curve
/// peels off the data. Time O(n) an iteration.
TOperationResult iarplss(int n, const double *y, double *z, double lambda, double ratio);

/// Sensitive nonlinear iterative peak clipping: y, smoothed by a moving average, is clipped to the mean of its values k
/// points to both sides, for half-windows k from m down to 1. m = n/2 * 10^((factor - 12)/6), rounded, at least 1 and
/// at most (n - 1)/2: factor 12 is half of the spectrum, six steps are a decade, and the same spectrum keeps its
/// baseline when it is sampled twice as dense. A window that does not fit at an end is not applied there.
///
/// References: C. G. Ryan et al., Nucl. Instrum. Methods B 34 (1988) 396-402, doi 10.1016/0168-583X(88)90063-8; M.
/// Morhac, V. Matousek, Appl. Spectrosc. 62 (2008) 91-106, doi 10.1366/000370208783412762. Departs from them: no
/// logarithms, so that the baseline follows any change of scale and offset; half-windows shrink by 0.7, which erodes
/// broad humps less and costs O(n log m).
TOperationResult snipBC(int n, const double *y, double *z, double factor);

/// Searches the decimal logarithm of lambda for iarplss: from 3 to 12, in quarters. mask[i] != 0 marks the points of
/// known peaks; null marks none. `factor` stays as it came, with a code other than 0, for n < 16 and for data that are
/// constant or not finite.
///
/// The least squares of the unmasked points alone always favour the smallest lambda, and the mask may be poor. So two
/// witnesses that err in opposite directions are heard on the grid 3, 3.5, ..., 12, and their mean is taken:
///  - A: the lambda whose baseline of all the data lies nearest to a reference curve, the fit of the unmasked points
///  with
///    the stiffest lambda that still predicts held out stretches of the length of a peak's footprint (four folds; the
///    trimmed error at most 1.2 times the smallest).
///  - B: the corner of the V-curve, where misfit and roughness change least with lambda: G. Frasso, P. H. C. Eilers,
///    Stat. Model. 15 (2015) 91-111, doi 10.1177/1471082X14549288.
/// A mask that leaves fewer than max(8, n/20) points is ignored. Above 8192 points the search works on means of blocks.
/// Deterministic. Some 900 solutions of the smoother. `scores`, when it is given, becomes the criterion over the
/// factors that were tried, in their order; empty where nothing was searched.
TOperationResult iarplssGA(int n, const unsigned char *mask, const double *y, double &factor, double ratio,
                           std::vector<TFactorScore> *scores = nullptr);

/// Searches the factor for snipBC, from 3 to 12 in tenths: the one whose baseline lies nearest to the reference curve
/// of iarplssGA, the smaller one on ties. Otherwise as there.
TOperationResult snipBCGA(int n, const unsigned char *mask, const double *y, double &factor,
                          std::vector<TFactorScore> *scores = nullptr);

} // namespace Matrix
} // namespace Utils
