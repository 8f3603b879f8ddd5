#pragma once

namespace Utils {
namespace Matrix {

class TReweightedSmoother;

/// The iteration of iarplss with a work space that the caller keeps; n >= 3, lambda > 0, y finite. Points with a
/// non-zero entry in `excluded`, which may be null, count nowhere and are bridged.
void fitIarPls(TReweightedSmoother &smoother, int n, const double *y, const unsigned char *excluded, double lambda,
               double ratio, double *z);

/// The first half-window of snipBC; at least 1, n >= 3.
int snipHalfWindow(int n, double factor);
/// snipBC without its checks, n >= 3. `scratch` has room for n values.
void clipPeaks(int n, const double *y, double *z, double *scratch, int halfWindow);

bool isAllFinite(const double *y, int n);

} // namespace Matrix
} // namespace Utils
