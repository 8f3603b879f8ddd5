#pragma once

/// Savitzky-Golay filters: their coefficients and the convolution that applies them (A. Savitzky, M. J. E. Golay, Anal.
/// Chem. 36 (1964) 1627-1639, doi 10.1021/ac60214a047).
namespace TYrexSavGol {

/// Whether savgol() accepts these: np >= nl + nr + 1, nl and nr not negative, 0 <= ld <= m <= nl + nr.
bool areUsable(int np, int nl, int nr, int ld, int m);

/// Fills c[0..np-1] with the coefficients for a window of nl points to the left and nr to the right, the derivative of
/// order ld (without the factor ld!) and polynomials of degree m: c[(np - k) % np] belongs to the point k steps to the
/// right, all others are 0.
///
/// The normal equations are solved by LU decomposition with scaled partial pivoting; sums of k^(2m) limit high degrees:
/// they lose digits, and beyond the range of double the coefficients are NaN. Cost: O((nl + nr) m + m^3).
/// What areUsable() refuses ends the process, and so does a singular matrix: a caller that cannot be sure asks first.
void savgol(double *c, int np, int nl, int nr, int ld, int m);

/// y[i] := sum of K[half + d] y[clamp(i + d, 0, n-1)] over d from -half to half, half = (len - 1) / 2, in place: the
/// end points stand for what lies beyond them. `wrapped` says that the kernel is in the order of savgol(), otherwise it
/// is K itself; it must not lie within y. Any n works, also one below half. A NaN or an infinity spreads over half
/// points to each side and no further.
///
/// Every sum starts at 0 and adds its terms from d = -half on, so the result has the same bits on every machine.
/// Nothing is done for a null pointer, n below 1 or a len that is even or below 1. Cost: O(n len), with scratch of some
/// 20 kB.
void convolve(double *y, int n, const double *kernel, int len, bool wrapped);

} // namespace TYrexSavGol
