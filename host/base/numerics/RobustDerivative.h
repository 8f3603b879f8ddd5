#pragma once

namespace Utils {
namespace Algorithm {

/// Derivatives per point that do not blow up noise: y[0..n-1] is smoothed by a second-order Whittaker smoother with all
/// weights 1 and replaced by the differences of the smooth curve; `invert` negates them. That is Tikhonov-regularised
/// differentiation: the slopes whose running sum fits y best under the penalty lambda * sum of squared slope changes.
///
/// The half-power period of the smoother is about 2 pi lambda^(1/4) points; lambda <= 0 smooths nothing. A straight
/// line is differentiated exactly for every lambda. Data with a NaN or an infinity stay as they are. Time and memory
/// O(n). Reference: P. H. C. Eilers, Anal. Chem. 75 (2003) 3631-3636, doi 10.1021/ac034173t.

/// First derivative, central differences; the ends take the one-sided ones. Zeros for n < 2.
void robustNoiseDerivative(double *y, int n, int lambda, bool invert);
/// First derivative of single precision data, computed in double and rounded once.
void robustNoiseDerivative(float *y, int n, int lambda);
/// Second derivative; the ends take their neighbours' values. Zeros for n < 3.
void robustNoiseSecondDerivative(double *y, int n, int lambda, bool invert);

} // namespace Algorithm
} // namespace Utils
