#include "numerics/RobustDerivative.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

/// One row of the eliminated system (1/lambda + D'D) z = y/lambda, D taking second differences. In long double: the
/// condition number grows with lambda, and the loop waits for its own results rather than for the arithmetic.
struct TEliminatedRow
{
    long double fFirst;  // first off-diagonal over the pivot
    long double fSecond; // second off-diagonal over the pivot
    long double fRight;  // right side over the pivot
};

long double mainDiagonal(int i, int n)
{
    const int fromEnd = std::min(i, n - 1 - i);
    if (fromEnd == 0)
        return 1.0L;
    if (fromEnd > 1)
        return 6.0L;
    return n == 3 ? 4.0L : 5.0L;
}

/// The Whittaker smoothing of y; y itself below three points, where nothing is penalised, and for lambda <= 0.
std::vector<double> smoothed(const double *y, int n, int lambda)
{
    std::vector<double> z(y, y + n);
    if (n < 3 || lambda <= 0)
        return z;
    std::vector<TEliminatedRow> rows(static_cast<size_t>(n));
    const long double weight = 1.0L / lambda;
    TEliminatedRow before = {0.0L, 0.0L, 0.0L}; // row i - 1
    TEliminatedRow beforeThat = before;         // row i - 2
    long double coupling = 0.0L;                // off-diagonal of row i - 1 before the division
    for (int i = 0; i < n; ++i) {
        const long double first = i == n - 1 ? 0.0L : i == 0 || i == n - 2 ? -2.0L : -4.0L;
        const long double second = i >= n - 2 ? 0.0L : 1.0L;
        const long double inverse =
            1.0L / (mainDiagonal(i, n) + weight - before.fFirst * coupling - beforeThat.fSecond);
        const long double right = weight * y[i] - coupling * before.fRight - beforeThat.fRight;
        coupling = first - before.fFirst;
        beforeThat = before;
        before = {coupling * inverse, second * inverse, right * inverse};
        rows[size_t(i)] = before;
    }
    long double next = 0.0L;
    long double nextButOne = 0.0L;
    for (int i = n - 1; i >= 0; --i) {
        const TEliminatedRow &row = rows[size_t(i)];
        const long double value = row.fRight - row.fFirst * next - row.fSecond * nextButOne;
        nextButOne = next;
        next = value;
        z[size_t(i)] = double(value);
    }
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
