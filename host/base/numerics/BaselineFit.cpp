#include "numerics/BaselineFit.h"

#include "numerics/TReweightedSmoother.h"

#include <algorithm>
#include <cmath>

namespace Utils {
namespace Matrix {

namespace {

constexpr int cMaxIterations = 50; // exp(50) = 5e21 still squares without an overflow
constexpr double cNothingBelow = 1e-14;
constexpr double cSettled = 0.99;

/// The mean of y over the window [i - h, i + h], h = min(half, i, n - 1 - i). The running sum is of differences from
/// the first value and kept in long double: a million steps leave no trace, and a constant stays what it is.
void centredAverage(int n, const double *y, double *z, int half)
{
    if (half == 0) {
        std::copy_n(y, n, z);
        return;
    }
    const long double base = y[0];
    long double sum = 0.0L;
    int low = 0; // the window [low, high]
    int high = 0;
    for (int i = 0; i < n; ++i) {
        const int h = std::min({half, i, n - 1 - i});
        while (high < i + h)
            sum += y[++high] - base;
        while (low < i - h)
            sum -= y[low++] - base;
        z[i] = double(base + sum / (high - low + 1));
    }
}

} // namespace

bool isAllFinite(const double *y, int n)
{
    return std::all_of(y, y + n, [](double value) { return std::isfinite(value); });
}

void fitIarPls(TReweightedSmoother &smoother, int n, const double *y, const unsigned char *excluded, double lambda,
               double ratio, double *z)
{
    double largest = 0.0;
    for (int i = 0; i < n; ++i)
        largest = std::max(largest, std::fabs(y[i]));
    smoother.start(n, y, excluded);
    double before = 0.0; // sigma of the iteration before
    for (int t = 1; t <= cMaxIterations; ++t) {
        smoother.smooth(lambda);
        const TReweightedSmoother::TBelow below = smoother.below();
        const double sigma = below.fDeviation;
        if (below.fCount < 2 || !(sigma > cNothingBelow * largest) || (t > 1 && sigma > cSettled * before))
            break;
        before = sigma;
        const double steepness = std::exp(double(t));
        const double change = smoother.reweight([sigma, steepness](const double *d, double *w, int count) {
            for (int i = 0; i < count; ++i) {
                const double u = steepness * (d[i] - 2.0 * sigma) / sigma;
                w[i] = 0.5 * (1.0 - u / std::sqrt(1.0 + u * u));
            }
        });
        if (change < ratio || !smoother.canAccept())
            break;
        smoother.accept();
    }
    smoother.write(z);
}

int snipHalfWindow(int n, double factor)
{
    const double half = std::floor(0.5 * n * std::pow(10.0, (factor - 12.0) / 6.0) + 0.5);
    return int(std::min(std::max(half, 1.0), double((n - 1) / 2)));
}

void clipPeaks(int n, const double *y, double *z, double *scratch, int halfWindow)
{
    double *from = z;
    double *to = scratch;
    centredAverage(n, y, from, halfWindow / 10);
    for (int k = halfWindow; k >= 1; k = std::min(k - 1, 7 * (k / 10) + 7 * (k % 10) / 10)) {
        std::copy_n(from, k, to);
        for (int i = k; i < n - k; ++i) {
            const double chord = (from[i - k] + from[i + k]) / 2.0;
            to[i] = chord < from[i] ? chord : from[i];
        }
        std::copy_n(from + n - k, k, to + n - k);
        std::swap(from, to);
    }
    if (from != z)
        std::copy_n(from, n, z);
}

} // namespace Matrix
} // namespace Utils
