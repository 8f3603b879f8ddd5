#include "numerics/RobustDerivative.h"

#include "numerics/PentadiagonalSolver.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

/// The Whittaker smoothing of y; y itself below three points, where nothing is penalised, and for lambda <= 0.
std::vector<double> smoothed(const double *y, int n, int lambda)
{
    std::vector<double> z(static_cast<size_t>(n));
    Utils::Matrix::whittakerSmooth(n, y, nullptr, lambda, z.data());
    return z;
}

bool isFinite(const double *y, int n)
{
    return std::all_of(y, y + n, [](double value) { return std::isfinite(value); });
}

} // namespace

void Utils::Algorithm::robustNoiseDerivative(double *y, int n, int lambda, bool invert)
{
    if (n <= 0 || !isFinite(y, n))
        return;
    if (n < 2) {
        y[0] = 0.0;
        return;
    }
    const std::vector<double> z = smoothed(y, n, lambda);
    const double sign = invert ? -1.0 : 1.0;
    const double *at = z.data();
    y[0] = sign * (at[1] - at[0]);
    for (int i = 1; i < n - 1; ++i)
        y[i] = sign * ((at[i + 1] - at[i - 1]) / 2.0);
    y[n - 1] = sign * (at[n - 1] - at[n - 2]);
}

void Utils::Algorithm::robustNoiseDerivative(float *y, int n, int lambda)
{
    if (n <= 0)
        return;
    std::vector<double> precise(y, y + n);
    robustNoiseDerivative(precise.data(), n, lambda, false);
    std::transform(precise.begin(), precise.end(), y, [](double value) { return float(value); });
}

void Utils::Algorithm::robustNoiseSecondDerivative(double *y, int n, int lambda, bool invert)
{
    if (n <= 0 || !isFinite(y, n))
        return;
    if (n < 3) {
        std::fill_n(y, n, 0.0);
        return;
    }
    const std::vector<double> z = smoothed(y, n, lambda);
    const double sign = invert ? -1.0 : 1.0;
    const double *at = z.data();
    for (int i = 1; i < n - 1; ++i)
        y[i] = sign * (at[i + 1] - 2.0 * at[i] + at[i - 1]);
    y[0] = y[1];
    y[n - 1] = y[n - 2];
}
