#include "numerics/MatrixUtils.h"

#include "numerics/BaselineFactorSearch.h"
#include "numerics/BaselineFit.h"
#include "numerics/TReweightedSmoother.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <vector>

namespace Utils {
namespace Matrix {

namespace {

constexpr int cKeptPoints = 1 << 16; // a larger work space is given back after the call
constexpr int cLeastSearched = 16;

TOperationResult failure(int code)
{
    static constexpr const char *cTexts[] = {
        QT_TRANSLATE_NOOP("Utils::Matrix", "Too few points for a baseline."),
        QT_TRANSLATE_NOOP("Utils::Matrix", "The data have values that are not finite."),
        QT_TRANSLATE_NOOP("Utils::Matrix", "The smoothing factor is out of range."),
        QT_TRANSLATE_NOOP("Utils::Matrix", "The data are constant.")};
    return {code, QCoreApplication::translate("Utils::Matrix", cTexts[code - cTooFewPoints])};
}

TOperationResult unchanged(int n, const double *y, double *z, int code)
{
    if (n > 0)
        std::copy_n(y, n, z);
    return failure(code);
}

/// The spectra of a stack come one after the other: each thread keeps the work space of the last one.
TReweightedSmoother &keptSmoother()
{
    static thread_local TReweightedSmoother smoother;
    return smoother;
}

/// 0 when a factor can be searched for these data.
int searchProblem(int n, const double *y)
{
    if (n < cLeastSearched)
        return cTooFewPoints;
    if (!isAllFinite(y, n))
        return cNotFinite;
    return std::any_of(y, y + n, [y](double value) { return value != y[0]; }) ? 0 : cConstant;
}

} // namespace

TOperationResult iarplss(int n, const double *y, double *z, double lambda, double ratio)
{
    if (n < 3)
        return unchanged(n, y, z, cTooFewPoints);
    if (!isAllFinite(y, n))
        return unchanged(n, y, z, cNotFinite);
    if (!(lambda > 0.0))
        return unchanged(n, y, z, cBadFactor);
    TReweightedSmoother &smoother = keptSmoother();
    fitIarPls(smoother, n, y, nullptr, lambda, ratio, z);
    smoother.trim(cKeptPoints);
    return {};
}

TOperationResult snipBC(int n, const double *y, double *z, double factor)
{
    if (n < 3)
        return unchanged(n, y, z, cTooFewPoints);
    if (!isAllFinite(y, n))
        return unchanged(n, y, z, cNotFinite);
    if (std::isnan(factor))
        return unchanged(n, y, z, cBadFactor);
    std::vector<double> scratch(static_cast<size_t>(n));
    clipPeaks(n, y, z, scratch.data(), snipHalfWindow(n, factor));
    return {};
}

TOperationResult iarplssGA(int n, const unsigned char *mask, const double *y, double &factor, double ratio,
                           std::vector<TFactorScore> *scores)
{
    if (scores)
        scores->clear();
    if (const int problem = searchProblem(n, y))
        return failure(problem);
    TBaselineFactorSearch search(n, mask, y);
    factor = search.smoothingFactor(ratio);
    if (scores)
        *scores = search.scores();
    return {};
}

TOperationResult snipBCGA(int n, const unsigned char *mask, const double *y, double &factor,
                          std::vector<TFactorScore> *scores)
{
    if (scores)
        scores->clear();
    if (const int problem = searchProblem(n, y))
        return failure(problem);
    TBaselineFactorSearch search(n, mask, y);
    factor = search.clippingFactor();
    if (scores)
        *scores = search.scores();
    return {};
}

} // namespace Matrix
} // namespace Utils
