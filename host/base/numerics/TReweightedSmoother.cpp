#include "numerics/TReweightedSmoother.h"

#include <algorithm>
#include <cmath>

namespace Utils {
namespace Matrix {

namespace {

/// Independent partial sums: the additions of one need not wait for another's, and the order does not depend on the
/// machine.
constexpr int cLanes = 4;
constexpr int cBlock = 256; // points whose residuals are worked on while they are in the fastest cache

double laneSum(const double (&lanes)[cLanes])
{
    return (lanes[0] + lanes[1]) + (lanes[2] + lanes[3]);
}

/// Sum over term(i), 0 <= i < n.
template <typename F>
double sumOf(int n, const F &term)
{
    double lanes[cLanes] = {};
    int i = 0;
    for (; i + cLanes <= n; i += cLanes) {
        for (int k = 0; k < cLanes; ++k)
            lanes[k] += term(i + k);
    }
    for (; i < n; ++i)
        lanes[0] += term(i);
    return laneSum(lanes);
}

} // namespace

void TReweightedSmoother::start(int n, const double *y, const unsigned char *excluded)
{
    fCount = n;
    const auto size = size_t(n);
    for (std::vector<double> *vector : {&fY, &fZ, &fWeights, &fNextWeights}) {
        if (vector->size() < size) // each by itself: an earlier run may have ended between them, without memory
            vector->resize(size);
    }
    removeLine(y);
    fUse.resize(excluded ? size : 0); // keeps what it has
    std::fill_n(fWeights.begin(), n, 1.0);
    for (int i = 0; excluded && i < n; ++i)
        fWeights[size_t(i)] = fUse[size_t(i)] = excluded[i] ? 0.0 : 1.0;
    fShift = 0.0;
    const double *w = fWeights.data();
    fNorm = sumOf(n, [w](int i) { return w[i] * w[i]; });
    fNextNorm = 0.0;
}

void TReweightedSmoother::removeLine(const double *y)
{
    const int n = fCount;
    const double centre = 0.5 * (n - 1);
    const double spread = double(n) * (double(n) * n - 1.0) / 12.0; // sum of squared distances from the centre
    fMean = sumOf(n, [y](int i) { return y[i]; }) / n;
    const double mean = fMean;
    fSlope = n < 2 ? 0.0 : sumOf(n, [y, mean, centre](int i) { return (y[i] - mean) * (i - centre); }) / spread;
    if (!std::isfinite(fMean) || !std::isfinite(fSlope)) // sums that overflow: the line is only there for the digits
        fMean = fSlope = 0.0;
    for (int i = 0; i < n; ++i)
        fY[size_t(i)] = y[i] - (fMean + fSlope * (i - centre));
}

void TReweightedSmoother::smooth(double lambda)
{
    fSolver.solve(fCount, fY.data(), fWeights.data(), lambda, fZ.data());
}

TReweightedSmoother::TBelow TReweightedSmoother::below()
{
    // one pass: sums of the distances from a mean that is nearly theirs lose no digits in the variance
    const double *y = fY.data();
    const double *z = fZ.data();
    const double shift = fShift;
    double counts[cLanes] = {};
    double sums[cLanes] = {};
    double squares[cLanes] = {};
    const auto add = [&](int lane, int i, double use) {
        const double residual = y[i] - z[i];
        const double distance = residual < 0.0 ? (residual - shift) * use : 0.0;
        counts[lane] += residual < 0.0 ? use : 0.0;
        sums[lane] += distance;
        squares[lane] += distance * distance;
    };
    if (fUse.empty()) {
        int i = 0;
        for (; i + cLanes <= fCount; i += cLanes) {
            for (int k = 0; k < cLanes; ++k)
                add(k, i + k, 1.0);
        }
        for (; i < fCount; ++i)
            add(0, i, 1.0);
    } else {
        for (int i = 0; i < fCount; ++i)
            add(i % cLanes, i, fUse[size_t(i)]);
    }
    TBelow below;
    const double count = laneSum(counts);
    below.fCount = int(count);
    if (below.fCount < 1)
        return below;
    const double offset = laneSum(sums) / count;
    below.fMean = fShift + offset;
    if (below.fCount > 1)
        below.fDeviation = std::sqrt(std::max(0.0, laneSum(squares) - count * offset * offset) / (count - 1.0));
    fShift = below.fMean;
    return below;
}

double TReweightedSmoother::reweight(const TWeights &weights)
{
    double residuals[cBlock];
    double change = 0.0;
    double norm = 0.0;
    for (int from = 0; from < fCount; from += cBlock) {
        const int count = std::min(cBlock, fCount - from);
        const double *y = fY.data() + from;
        const double *z = fZ.data() + from;
        const double *old = fWeights.data() + from;
        double *next = fNextWeights.data() + from;
        for (int i = 0; i < count; ++i)
            residuals[i] = y[i] - z[i];
        weights(residuals, next, count);
        for (int i = 0; i < count && !fUse.empty(); ++i)
            next[i] *= fUse[size_t(from + i)];
        change += sumOf(count, [=](int i) { return (old[i] - next[i]) * (old[i] - next[i]); });
        norm += sumOf(count, [=](int i) { return next[i] * next[i]; });
    }
    fNextNorm = norm;
    return std::sqrt(change) / std::sqrt(fNorm);
}

void TReweightedSmoother::accept()
{
    fWeights.swap(fNextWeights);
    fNorm = fNextNorm;
}

void TReweightedSmoother::write(double *z) const
{
    const double centre = 0.5 * (fCount - 1);
    for (int i = 0; i < fCount; ++i)
        z[i] = fZ[size_t(i)] + (fMean + fSlope * (i - centre));
}

void TReweightedSmoother::trim(int points)
{
    fSolver.trim(points);
    if (fY.size() <= size_t(std::max(0, points)))
        return;
    for (std::vector<double> *vector : {&fY, &fZ, &fUse, &fWeights, &fNextWeights})
        std::vector<double>().swap(*vector);
}

} // namespace Matrix
} // namespace Utils
