// The automatic control points of the multipoint baseline.
#include "TYrexMultipointCurve.h"

#include "TYrexMultipointSetup.h"
#include "TYrexScatter.h"
#include "TYrexSpectrum.h"
#include "numerics/RobustDerivative.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int cLocalLevel = 2;         // kind of the points that are added
constexpr int cDerivativeLambda = 10;  // of the noise-robust derivative
constexpr int cMinPoints = 4;          // a derivative with a maximum inside
constexpr double cQuietShare = 0.02;   // of the derivative's deviation: below it a stretch counts as quiet
constexpr double cLevelShare = 0.4;    // of the candidates' deviation
constexpr double cFlatShare = 0.6;     // of that level, for the deviation within a slice
constexpr double cClosestShare = 0.01; // of the spectrum, between two points

/// Mean and deviation of the slice seen last; an empty slice leaves them as they were.
struct TSliceFigures
{
    double fMean = 0.0;
    double fDeviation = 0.0;

    void look(const QVector<double> &values, int from, int length)
    {
        const int first = qBound(0, from, values.size());
        const int end = qBound(first, from + length, values.size());
        TYrexScatter::meanAndDeviation(end - first, values.constData() + first, fMean, fDeviation);
    }
};

struct TSegments
{
    int fLength; // of a stretch
    int fHalf;
    int fQuarter;

    explicit TSegments(int n)
    {
        const int width = qBound(60, n / 100, 300);
        int pieces = n / (2 * width);
        if (pieces >= 2 && pieces % 2 != 0)
            --pieces;
        const double stretch = (std::log2(double(n)) - 10.0) / 3.0;
        fLength = int((n / qMax(1, pieces)) * qMax(stretch, 0.5));
        fHalf = fLength / 2;
        fQuarter = fHalf / 2;
    }
};

QVector<double> derivativeOf(const QVector<double> &y)
{
    QVector<float> f(y.size());
    std::transform(y.begin(), y.end(), f.begin(), [](double value) { return float(value); });
    Utils::Algorithm::robustNoiseDerivative(f.data(), f.size(), cDerivativeLambda);
    QVector<double> d(f.size());
    std::copy(f.begin(), f.end(), d.begin());
    d.first() = 0.0;
    d.last() = 0.0;
    return d;
}

/// Neighbouring maxima of the derivative that stand closer than usual.
QVector<int> crowdedMaxima(const QVector<double> &d)
{
    QVector<int> maxima;
    for (int k = 0; k + 3 < d.size(); ++k) { // the last value is no derivative
        if (!(d.at(k) > d.at(k + 1)) && d.at(k + 1) > d.at(k + 2))
            maxima.append(k + 1);
    }
    QVector<int> gaps;
    for (int k = 1; k < maxima.size(); ++k)
        gaps.append(maxima.at(k) - maxima.at(k - 1));
    int limit = d.size() + 1;
    if (!gaps.isEmpty()) {
        QVector<int> sorted = gaps;
        std::sort(sorted.begin(), sorted.end());
        const int middle = sorted.size() / 2;
        limit = 1 + (sorted.size() % 2 != 0 ? sorted.at(middle) : (sorted.at(middle - 1) + sorted.at(middle)) / 2);
    }
    QVector<int> crowded;
    for (int k = 0; k < gaps.size(); ++k) {
        if (gaps.at(k) < limit)
            crowded << maxima.at(k) << maxima.at(k + 1);
    }
    return crowded;
}

QVector<double> at(const QVector<double> &values, const QVector<int> &indices)
{
    QVector<double> picked;
    for (const int index : indices) {
        if (index < values.size())
            picked.append(values.at(index));
    }
    return picked;
}

double deviationOf(const QVector<double> &values)
{
    TSliceFigures figures;
    figures.look(values, 0, values.size());
    return figures.fDeviation;
}

QVector<int> candidates(const QVector<double> &d, const TSegments &segments)
{
    QVector<int> places = crowdedMaxima(d);
    const QVector<double> crowded = at(d, places);
    const double limit = cQuietShare * deviationOf(crowded);
    TSliceFigures figures;
    for (int start = 0; start < d.size() - 1; start += segments.fLength) {
        figures.look(crowded, start, segments.fLength);
        if (figures.fDeviation < limit)
            places.append(start + segments.fHalf);
    }
    return places;
}

QVector<int> flatPlaces(const QVector<double> &y, const QVector<int> &places, const TSegments &segments)
{
    const double level = cLevelShare * deviationOf(at(y, places));
    const int q = segments.fQuarter;
    QVector<int> flat;
    int last = -segments.fLength;
    TSliceFigures figures;
    for (const int place : places) {
        if (place < last + segments.fLength || place - q < 0 || place >= y.size())
            continue;
        const auto isFlat = [&](int from) {
            figures.look(y, from, q);
            return figures.fDeviation < cFlatShare * level && std::fabs(figures.fMean - y.at(place)) <= level;
        };
        if (isFlat(place - q) && isFlat(place + q)) {
            flat.append(place);
            last = place;
        }
    }
    return flat;
}

} // namespace

void TYrexMultipointCurve::addAutomaticPoints(TYrexSpectrum &spectrum)
{
    const QVector<double> y = spectrum.values().mid(0, spectrum.pointCount());
    const TSegments segments(qMax(1, y.size()));
    if (y.size() < cMinPoints || segments.fLength < 1)
        return;
    TYrexMultipointSetup &setup = spectrum.procParams().multipoint();
    const QVector<int> flat = flatPlaces(y, candidates(derivativeOf(y), segments), segments);
    setup.autoPointCount = flat.size();
    const double closest = cClosestShare * y.size();
    for (const int place : flat) {
        const bool isTaken = std::any_of(setup.points.begin(), setup.points.end(),
                                         [&](const TYrexBaselinePoint &p) { return std::fabs(p.x - place) < closest; });
        if (!isTaken)
            setup.points.append({double(place), 0.0, cLocalLevel});
    }
}
