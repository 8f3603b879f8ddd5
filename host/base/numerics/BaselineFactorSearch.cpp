#include "numerics/BaselineFactorSearch.h"

#include "numerics/BaselineFit.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Utils {
namespace Matrix {

namespace {

// The grid starts at 3, where the callers' rules for small factors end.
constexpr double cGridFirst = 3.0;
constexpr double cGridStep = 0.5;
constexpr int cGridCount = 19;
constexpr int cClippingSteps = 90; // tenths from 3 to 12
constexpr double cLargestFactor = 12.0;

constexpr int cMaxPoints = 8192;
constexpr int cFolds = 4;
constexpr double cTrimmed = 0.75;   // share of the errors that counts: peaks that the mask missed fall out
constexpr double cTolerated = 1.2;  // of the smallest error
constexpr double cTiny = 1e-300;    // keeps the logarithms finite
constexpr double cSnipRatio = 1e-6; // stop of the reference curve for clipping

double gridValue(int index)
{
    return cGridFirst + cGridStep * index;
}

double lambdaOf(double log10Lambda)
{
    return std::pow(10.0, log10Lambda);
}

} // namespace

TBaselineFactorSearch::TBaselineFactorSearch(int n, const unsigned char *mask, const double *y)
{
    fBlock = (n + cMaxPoints - 1) / cMaxPoints;
    takeBlockMeans(n, mask, y);
    dropUselessMask();
    fReference.resize(size_t(fCount));
    fZ.resize(size_t(fCount));
}

/// A rest that fills no block is dropped; a block is masked if at least half of it is.
void TBaselineFactorSearch::takeBlockMeans(int n, const unsigned char *mask, const double *y)
{
    fCount = n / fBlock;
    fY.resize(size_t(fCount));
    fMask.resize(size_t(fCount));
    for (int i = 0; i < fCount; ++i) {
        double sum = 0.0;
        int masked = 0;
        for (int k = i * fBlock; k < (i + 1) * fBlock; ++k) {
            sum += y[k];
            masked += mask && mask[k] ? 1 : 0;
        }
        fY[size_t(i)] = sum / fBlock;
        fMask[size_t(i)] = 2 * masked >= fBlock ? 1 : 0;
    }
}

void TBaselineFactorSearch::dropUselessMask()
{
    const auto left = std::count(fMask.begin(), fMask.end(), 0);
    if (left < std::max(8, fCount / 20))
        std::fill(fMask.begin(), fMask.end(), static_cast<unsigned char>(0));
}

/// The length of the stretches that are held out: that of a long footprint in the mask.
int TBaselineFactorSearch::gapLength() const
{
    std::vector<int> runs;
    for (int i = 0; i < fCount; ++i) {
        if (!fMask[size_t(i)])
            continue;
        if (i == 0 || !fMask[size_t(i - 1)])
            runs.push_back(0);
        ++runs.back();
    }
    int gap = fCount / 100;
    if (!runs.empty()) {
        const auto at = runs.begin() + int(0.9 * double(runs.size() - 1));
        std::nth_element(runs.begin(), at, runs.end());
        gap = *at;
    }
    gap = std::max({gap, 8, fCount / 100});
    return std::max(1, std::min(gap, fCount / 16));
}

/// Root mean square of the smallest errors with which stretches that were left out of the fit are predicted.
double TBaselineFactorSearch::predictionError(double log10Lambda, int gap, double ratio)
{
    fErrors.clear();
    for (int fold = 0; fold < cFolds; ++fold) {
        const auto isHeldOut = [gap, fold](int i) { return (i / gap) % cFolds == fold; };
        for (int i = 0; i < fCount; ++i)
            fExcluded[size_t(i)] = fMask[size_t(i)] || isHeldOut(i) ? 1 : 0;
        fitIarPls(fSmoother, fCount, fY.data(), fExcluded.data(), lambdaOf(log10Lambda), ratio, fZ.data());
        for (int i = 0; i < fCount; ++i) {
            if (!fMask[size_t(i)] && isHeldOut(i))
                fErrors.push_back(std::fabs(fY[size_t(i)] - fZ[size_t(i)]));
        }
    }
    const auto kept = std::max(size_t(1), size_t(cTrimmed * double(fErrors.size())));
    std::nth_element(fErrors.begin(), fErrors.begin() + std::ptrdiff_t(kept - 1), fErrors.end());
    double squares = 0.0;
    for (size_t i = 0; i < kept; ++i)
        squares += fErrors[i] * fErrors[i];
    return std::sqrt(squares / double(kept));
}

/// The fit of the unmasked points with the stiffest lambda that still bridges gaps well.
void TBaselineFactorSearch::fitReference(double ratio)
{
    fExcluded.resize(size_t(fCount));
    fErrors.reserve(size_t(fCount));
    const int gap = gapLength();
    double errors[cGridCount];
    for (int k = 0; k < cGridCount; ++k)
        errors[k] = predictionError(gridValue(k), gap, ratio);
    const double limit = cTolerated * *std::min_element(errors, errors + cGridCount);
    int stiffest = 0;
    for (int k = 0; k < cGridCount; ++k) {
        if (errors[k] <= limit)
            stiffest = k;
    }
    fitIarPls(fSmoother, fCount, fY.data(), fMask.data(), lambdaOf(gridValue(stiffest)), ratio, fReference.data());
}

/// Over all points: under the peaks a curve that is too flexible gives itself away.
double TBaselineFactorSearch::distanceToReference(const std::vector<double> &z) const
{
    double squares = 0.0;
    for (size_t i = 0; i < size_t(fCount); ++i)
        squares += (z[i] - fReference[i]) * (z[i] - fReference[i]);
    return squares;
}

/// lambda grows with the fourth power of the density of points
double TBaselineFactorSearch::densityShift() const
{
    return 4.0 * std::log10(double(fBlock));
}

/// Adds what a witness says of the factors, least is best, scaled to 0 to 1.
void TBaselineFactorSearch::addWitness(const std::vector<double> &values)
{
    const auto ends = std::minmax_element(values.begin(), values.end());
    const double range = *ends.second - *ends.first;
    for (size_t k = 0; k < fScores.size() && range > 0.0; ++k)
        fScores[k].fScore += (values[k] - *ends.first) / range;
}

double TBaselineFactorSearch::smoothingFactor(double ratio)
{
    fitReference(ratio);
    std::vector<double> distances;
    double misfit[cGridCount]; // logarithms of the mean squared residual of the unmasked points,
    double rough[cGridCount];  // and of the sum of squared second differences
    int nearest = 0;
    double nearestDistance = std::numeric_limits<double>::infinity();
    for (int k = 0; k < cGridCount; ++k) {
        fitIarPls(fSmoother, fCount, fY.data(), nullptr, lambdaOf(gridValue(k)), ratio, fZ.data());
        const double distance = distanceToReference(fZ);
        distances.push_back(std::log(distance + cTiny));
        if (distance < nearestDistance) {
            nearestDistance = distance;
            nearest = k;
        }
        double squares = 0.0;
        double bends = 0.0;
        int unmasked = 0;
        for (size_t i = 0; i < size_t(fCount); ++i) {
            if (!fMask[i]) {
                squares += (fY[i] - fZ[i]) * (fY[i] - fZ[i]);
                ++unmasked;
            }
            if (i >= 2) {
                const double bend = (fZ[i] - fZ[i - 1]) - (fZ[i - 1] - fZ[i - 2]);
                bends += bend * bend;
            }
        }
        misfit[k] = std::log(squares / unmasked + cTiny);
        rough[k] = std::log(bends + cTiny);
    }
    const auto step = [&](int k) { return std::hypot(misfit[k + 1] - misfit[k], rough[k + 1] - rough[k]); };
    int corner = 1;
    for (int k = 2; k + 1 < cGridCount; ++k) {
        if (step(k - 1) + step(k) < step(corner - 1) + step(corner))
            corner = k;
    }
    std::vector<double> steps;
    for (int k = 0; k < cGridCount; ++k) {
        const int inner = std::min(std::max(k, 1), cGridCount - 2); // the ends have one step only
        steps.push_back(step(inner - 1) + step(inner));
    }
    fScores.clear();
    for (int k = 0; k < cGridCount; ++k)
        fScores.push_back({gridValue(k) + densityShift(), 0.0});
    addWitness(distances);
    addWitness(steps);
    for (TFactorScore &score : fScores)
        score.fScore *= 0.5;
    return std::min(0.5 * (gridValue(nearest) + gridValue(corner)) + densityShift(), cLargestFactor);
}

double TBaselineFactorSearch::clippingFactor()
{
    fitReference(cSnipRatio);
    std::vector<double> scratch(static_cast<size_t>(fCount));
    std::vector<double> distances;
    fScores.clear();
    double best = cGridFirst;
    double bestDistance = std::numeric_limits<double>::infinity();
    int lastWindow = 0;
    for (int k = 0; k <= cClippingSteps; ++k) {
        const double factor = cGridFirst + k / 10.0;
        const int window = snipHalfWindow(fCount, factor);
        if (window == lastWindow)
            continue; // the same curve
        lastWindow = window;
        clipPeaks(fCount, fY.data(), fZ.data(), scratch.data(), window);
        const double distance = distanceToReference(fZ);
        distances.push_back(std::log(distance + cTiny));
        fScores.push_back({factor, 0.0});
        if (distance < bestDistance) {
            bestDistance = distance;
            best = factor;
        }
    }
    addWitness(distances);
    return best;
}

} // namespace Matrix
} // namespace Utils
