#include "resampleMonotoneCubic.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int cResampled = 0;
constexpr int cLeftAlone = 1;

/// The cubic between two neighbouring points of the source, remade when the walk enters the next interval.
class THermiteInterval
{
public:
    THermiteInterval(const double *x, const double *y, int n)
        : fX(x)
        , fY(y)
        , fN(n)
    {
        enter(0);
    }

    int index() const { return fK; }

    void enter(int k)
    {
        fK = k;
        const double h = step(k);
        const double delta = chord(k);
        const double left = slope(k);
        const double right = slope(k + 1);
        fC1 = left;
        fC2 = (-(right - delta) - 2 * (left - delta)) / h;
        fC3 = ((right - delta) + (left - delta)) / (h * h);
    }

    double at(double position) const
    {
        if (position == fX[fK + 1])
            return fY[fK + 1];
        const double t = position - fX[fK];
        return fY[fK] + fC1 * t + fC2 * t * t + fC3 * t * t * t;
    }

private:
    double step(int k) const { return fX[k + 1] - fX[k]; }
    double chord(int k) const { return (fY[k + 1] - fY[k]) / step(k); }

    double slope(int k) const
    {
        if (fN == 2)
            return chord(0);
        if (k == 0)
            return endSlope(step(0), step(1), chord(0), chord(1));
        if (k == fN - 1)
            return endSlope(step(fN - 2), step(fN - 3), chord(fN - 2), chord(fN - 3));
        const double before = chord(k - 1);
        const double behind = chord(k);
        if (!(before * behind > 0.0))
            return 0.0;
        const double hBefore = step(k - 1);
        const double hBehind = step(k);
        return 3 * (hBefore + hBehind) * std::fabs(before) * std::fabs(behind) /
               ((hBefore + 2 * hBehind) * behind + (2 * hBefore + hBehind) * before);
    }

    /// The three-point slope of an end, limited so that the curve stays monotone.
    static double endSlope(double h, double hNext, double delta, double deltaNext)
    {
        const double d = ((2 * h + hNext) * delta - h * deltaNext) / (h + hNext);
        if (!(d * delta > 0.0))
            return 0.0;
        if (delta * deltaNext < 0.0 && std::fabs(d) > std::fabs(3 * delta))
            return 3 * delta;
        return d;
    }

    const double *fX;
    const double *fY;
    int fN;
    int fK = 0;
    double fC1 = 0.0;
    double fC2 = 0.0;
    double fC3 = 0.0;
};

template <typename TPositions>
bool ascends(const TPositions &at, int n)
{
    for (int i = 1; i < n; ++i) {
        if (at(i) - at(i - 1) < 0.0)
            return false;
    }
    return true;
}

template <typename TPositions>
int resample(const QVector<double> &sourceX, QVector<double> &y, const TPositions &newX, int m)
{
    const int n = sourceX.size();
    const double *x = sourceX.constData();
    if (n >= m || y.size() != n || n < 2)
        return cLeftAlone;
    if (!ascends([x](int i) { return x[i]; }, n) || !ascends(newX, m))
        return cLeftAlone;

    // No position is above a NaN, so the search for an interval never passes one.
    int last = 0;
    while (last < n - 2 && !std::isnan(x[last + 1]))
        ++last;

    QVector<double> out(m);
    double *to = out.data();
    to[0] = y.at(0);
    THermiteInterval interval(x, y.constData(), n);
    double before = newX(0);
    int k = 0;
    for (int j = 1; j < m; ++j) {
        const double position = newX(j);
        if (!(position >= before)) // only around a NaN, everything else ascends
            k = int(std::lower_bound(x + 1, x + 1 + last, position) - (x + 1));
        while (k < last && position > x[k + 1])
            ++k;
        if (k != interval.index())
            interval.enter(k);
        to[j] = interval.at(position);
        before = position;
    }
    y = out;
    return cResampled;
}

} // namespace

int resampleMonotoneCubic(const QVector<double> &x, QVector<double> &y, const QVector<double> &newX)
{
    const double *positions = newX.constData();
    return resample(
        x, y, [positions](int i) { return positions[i]; }, newX.size());
}

int resampleMonotoneCubic(const QVector<double> &x, QVector<double> &y, const TEvenGrid &newX)
{
    return resample(
        x, y, [newX](int i) { return newX.fFirst + i * newX.fStep; }, newX.fCount);
}
