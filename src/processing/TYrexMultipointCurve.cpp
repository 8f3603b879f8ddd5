#include "TYrexMultipointCurve.h"

#include "TYrexMultipointSetup.h"
#include "TYrexSpectrum.h"
#include "TYrexUnits.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int cAsPlaced = 1;
constexpr int cLocalLevel = 2;
constexpr int cWideLevel = 3;
constexpr int cWideWindow = 15; // points
constexpr double cPi = 3.14159265358979323846;

using TKnots = QVector<TYrexBaselinePoint>;

/// The point index of a position, halves away from zero, held within the data.
int pointIndex(double position, int n)
{
    if (!(position > 0.0))
        return 0;
    return position >= double(n - 1) ? n - 1 : int(std::round(position));
}

double plainMean(const TYrexSpectrum &spectrum, int index, int window)
{
    const int from = qMax(index - window, 0);
    const int to = qMin(index + window + 1, spectrum.pointCount());
    double sum = 0.0;
    for (int i = from; i < to; ++i)
        sum += spectrum.values().at(i);
    return to > from ? sum / (to - from) : 0.0;
}

double heightOf(const TYrexSpectrum &spectrum, const TYrexBaselinePoint &point, int window)
{
    const int n = spectrum.pointCount();
    const int index = pointIndex(point.x, n);
    switch (point.kind) {
    case cAsPlaced:
        return point.y;
    case cLocalLevel:
        return spectrum.localMeanLevel(index, n, window);
    case cWideLevel:
        return spectrum.localMeanLevel(index, n, cWideWindow);
    default:
        return plainMean(spectrum, index, window);
    }
}

/// The points in order of x, the first of those with the same x.
TKnots sortedKnots(const TKnots &points)
{
    TKnots knots = points;
    knots.erase(
        std::remove_if(knots.begin(), knots.end(), [](const TYrexBaselinePoint &p) { return !std::isfinite(p.x); }),
        knots.end());
    std::stable_sort(knots.begin(), knots.end(),
                     [](const TYrexBaselinePoint &a, const TYrexBaselinePoint &b) { return a.x < b.x; });
    knots.erase(std::unique(knots.begin(), knots.end(),
                            [](const TYrexBaselinePoint &a, const TYrexBaselinePoint &b) { return a.x == b.x; }),
                knots.end());
    return knots;
}

/// Second-degree and third-degree coefficients and slopes of the natural cubic spline, one set for each segment.
struct TSpline
{
    QVector<double> b, c, d;

    explicit TSpline(const TKnots &knots)
    {
        const int last = knots.size() - 1;
        QVector<double> h(last), mu(last + 1, 0.0), z(last + 1, 0.0);
        b.resize(last);
        c = QVector<double>(last + 1, 0.0);
        d.resize(last);
        for (int k = 0; k < last; ++k)
            h[k] = knots.at(k + 1).x - knots.at(k).x;
        for (int k = 1; k < last; ++k) {
            const double alpha = 3.0 * (knots.at(k + 1).y - knots.at(k).y) / h.at(k) -
                                 3.0 * (knots.at(k).y - knots.at(k - 1).y) / h.at(k - 1);
            const double l = 2.0 * (h.at(k - 1) + h.at(k)) - h.at(k - 1) * mu.at(k - 1);
            mu[k] = h.at(k) / l;
            z[k] = (alpha - h.at(k - 1) * z.at(k - 1)) / l;
        }
        for (int k = last - 1; k >= 0; --k) {
            c[k] = z.at(k) - mu.at(k) * c.at(k + 1);
            b[k] = (knots.at(k + 1).y - knots.at(k).y) / h.at(k) - h.at(k) * (c.at(k + 1) + 2.0 * c.at(k)) / 3.0;
            d[k] = (c.at(k + 1) - c.at(k)) / (3.0 * h.at(k));
        }
    }
};

QVector<double> segmentCurve(const TKnots &knots, int n, int algorithm)
{
    QVector<double> values(n, 0.0);
    if (knots.size() < 2)
        return values;
    const TSpline spline(knots);
    int k = 0;
    for (int i = 0; i < n; ++i) {
        if (!(i > knots.first().x && i < knots.last().x))
            continue;
        if (i > knots.at(k + 1).x && k + 2 < knots.size())
            ++k; // by one knot a point, however close the knots stand
        const TYrexBaselinePoint &left = knots.at(k);
        const TYrexBaselinePoint &right = knots.at(k + 1);
        const double s = i - left.x;
        const double t = s / (right.x - left.x);
        if (algorithm == TYrexMultipointSetup::cLinearSegments) {
            values[i] = left.y + s * (right.y - left.y) / (right.x - left.x);
        } else if (algorithm == TYrexMultipointSetup::cSmoothSegments) {
            const double g = (1.0 - std::cos(cPi * t)) / 2.0;
            values[i] = (1.0 - g) * left.y + g * right.y;
        } else {
            values[i] = left.y + spline.b.at(k) * s + spline.c.at(k) * s * s + spline.d.at(k) * s * s * s;
        }
    }
    return values;
}

/// First-order Whittaker smoother of y with weights w, by elimination of the tridiagonal system; the result is in y.
void whittaker(QVector<float> &y, const QVector<float> &w, float lambda)
{
    const int m = y.size();
    if (m == 1) {
        y[0] = w.at(0) * y.at(0);
        return;
    }
    QVector<float> c(m, 0.0f), d(m, 0.0f);
    d[0] = w.at(0) + lambda;
    c[0] = -lambda / d.at(0);
    y[0] = w.at(0) * y.at(0);
    for (int i = 1; i < m; ++i) {
        const float penalty = i == m - 1 ? lambda : 2.0f * lambda;
        d[i] = w.at(i) + penalty - c.at(i - 1) * c.at(i - 1) * d.at(i - 1);
        c[i] = -lambda / d.at(i);
        y[i] = w.at(i) * y.at(i) - c.at(i - 1) * y.at(i - 1);
    }
    y[m - 1] /= d.at(m - 1);
    for (int i = m - 2; i >= 0; --i)
        y[i] = y.at(i) / d.at(i) - c.at(i) * y.at(i + 1);
}

QVector<double> whittakerCurve(const TKnots &knots, int n, int lambda)
{
    QVector<double> values(n, 0.0);
    if (knots.isEmpty() || n == 0)
        return values;
    const int first = pointIndex(knots.first().x, n);
    const int last = pointIndex(knots.last().x, n);
    QVector<float> y(last - first + 1, 0.0f), w(last - first + 1, 0.0f);
    for (const TYrexBaselinePoint &knot : knots) {
        const int place = pointIndex(knot.x, n) - first;
        w[place] = 1.0f;
        y[place] = float(knot.y);
    }
    whittaker(y, w, float(lambda));
    for (int i = first; i < last; ++i)
        values[i] = double(y.at(i - first));
    return values;
}

void correct(TYrexSpectrum &spectrum, const double *baseline)
{
    const int n = spectrum.pointCount();
    double *y = spectrum.data();
    const int unit = spectrum.yUnits();
    if (unit != cUnitTransmittance && unit != cUnitPercentTransmittance) {
        for (int i = 0; i < n; ++i)
            y[i] -= baseline[i];
        return;
    }
    // percent is raised by 1 too, as documents made so far expect
    const double top = unit == cUnitTransmittance ? 1.0 : 100.0;
    for (int i = 0; i < n; ++i)
        y[i] = qBound(0.0, y[i] + 1.0 - baseline[i], top);
}

} // namespace

QVector<double> TYrexMultipointCurve::curve(const QVector<TYrexBaselinePoint> &knots, int n, int algorithm, int lambda)
{
    switch (algorithm) {
    case TYrexMultipointSetup::cLinearSegments:
    case TYrexMultipointSetup::cSmoothSegments:
    case TYrexMultipointSetup::cCubicSplines:
        return segmentCurve(knots, n, algorithm);
    case TYrexMultipointSetup::cWhittaker:
        return whittakerCurve(knots, n, lambda);
    default:
        return QVector<double>(n, 0.0);
    }
}

void TYrexMultipointCurve::computeMultipointBaseline(TYrexSpectrum &spectrum, bool apply)
{
    TYrexMultipointSetup &setup = spectrum.procParams().multipoint();
    const int n = spectrum.pointCount();
    if (!setup.active)
        return;
    if (setup.points.isEmpty() || n == 0) {
        spectrum.freePreview();
        return;
    }
    for (TYrexBaselinePoint &point : setup.points)
        point.y = heightOf(spectrum, point, setup.avgWindow);
    const QVector<double> values = curve(sortedKnots(setup.points), n, setup.algorithm, setup.lambda);
    spectrum.allocPreview(n);
    spectrum.zeroPreview();
    std::copy(values.begin(), values.end(), spectrum.preview());
    if (!apply)
        return;
    correct(spectrum, spectrum.preview());
    spectrum.freePreview();
}

void TYrexMultipointCurve::addBorderPoints(TYrexSpectrum &spectrum)
{
    QVector<TYrexBaselinePoint> &points = spectrum.procParams().multipoint().points;
    const double last = spectrum.pointCount() - 1;
    const auto stands = [&points](double x) {
        return std::any_of(points.begin(), points.end(), [x](const TYrexBaselinePoint &p) { return p.x == x; });
    };
    if (last < 0.0)
        return;
    if (!stands(0.0))
        points.prepend({0.0, 0.0, cLocalLevel});
    if (!stands(last))
        points.append({last, 0.0, cLocalLevel});
}
