#include "TYrexNormalization.h"

#include "TYrexProcIds.h"
#include "TYrexProcSteps.h"
#include "TYrexSpectrum.h"

#include <cblas.h>
#include <cmath>
#include <limits>

namespace {

constexpr double cSmallest = std::numeric_limits<double>::epsilon(); // spans and sums below this count as 0

/// Points [fFirst, fLast), which may be empty.
struct TRange
{
    int fFirst;
    int fLast;

    int count() const { return qMax(0, fLast - fFirst); }
};

double number(const QVariantMap &action, const char *key)
{
    return action.value(QLatin1String(key)).toDouble();
}

/// The point nearest to an x value; NaN on an axis without extent.
double pointAt(const TYrexSpectrum &spectrum, double x)
{
    const double extent = spectrum.lastX() - spectrum.firstX();
    return std::floor((x - spectrum.firstX()) * (spectrum.pointCount() - 1) / extent + 0.5);
}

TRange rangeOf(const TYrexSpectrum &spectrum, const QVariantMap &action)
{
    const int n = spectrum.pointCount();
    const TRange whole = {0, n - 1};
    const double from = number(action, cKeyNormRangeFrom);
    const double to = number(action, "normalizationrangeto");
    if (action.value(QStringLiteral("normalizationfullrange")).toBool() || from == to)
        return whole;
    const double a = pointAt(spectrum, from);
    const double b = pointAt(spectrum, to);
    if (std::isnan(a) || std::isnan(b))
        return whole;
    // the outer limits only keep the numbers small enough for an int: such a range is empty either way
    const TRange range = {int(qBound(0.0, qMin(a, b), double(n))), int(qBound(-1.0, qMax(a, b), double(n - 1)))};
    return range.fFirst == range.fLast ? whole : range;
}

/// y := (y - offset) * factor. Plain loops: BLAS libraries differ in what 0 times infinity is.
void moveAndScale(TYrexSpectrum &spectrum, double offset, double factor)
{
    double *y = spectrum.data();
    const int n = spectrum.pointCount();
    for (int i = 0; i < n; ++i)
        y[i] = (y[i] - offset) * factor;
}

double factorFor(double value, double figure)
{
    return figure < cSmallest ? 0.0 : value / figure;
}

} // namespace

void TYrexNormalization::normalize(TYrexSpectrum &spectrum, const QVariantMap &action)
{
    const TRange range = rangeOf(spectrum, action);
    const double value = number(action, "normalizationvalue");
    const double *y = spectrum.values().constData();
    const double *start = range.count() > 0 ? y + range.fFirst : y;
    switch (action.value(QLatin1String(cKeyNormMode)).toInt()) {
    case cNormLargestPeak: {
        const double low = spectrum.minValue(range.fFirst, range.fLast);
        const double high = spectrum.maxValue(range.fFirst, range.fLast);
        moveAndScale(spectrum, low, factorFor(value, high - low));
        break;
    }
    case cNormIntegral:
        moveAndScale(spectrum, 0.0, factorFor(value, cblas_dasum(range.count(), start, 1)));
        break;
    case cNormVectorLength:
        moveAndScale(spectrum, 0.0, value / cblas_dnrm2(range.count(), start, 1));
        break;
    default:
        return;
    }
    TYrexProcSteps::labelArbitrary(spectrum);
}
