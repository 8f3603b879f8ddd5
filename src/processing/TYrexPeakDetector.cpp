#include "TYrexPeakDetector.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// The parabola through a point and its neighbours.
struct TVertex
{
    double fShift; // from the middle point
    double fHeight;
};

/// False for three values on a line.
bool vertexAt(const double *y, int n, int i, int stride, TVertex &vertex)
{
    const double left = y[qBound(0, i - stride, n - 1)];
    const double right = y[qBound(0, i + stride, n - 1)];
    const double slope = (left - right) / 2.0;
    const double curvature = left + right - 2.0 * y[i];
    if (curvature == 0.0)
        return false;
    vertex.fShift = slope / curvature;
    vertex.fHeight = y[i] - vertex.fShift / 2.0 * slope;
    return true;
}

bool pointsUp(double value, int mode)
{
    return mode == TYrexPeakDetector::cBySign ? value >= 0.0 : mode == TYrexPeakDetector::cUp;
}

/// The values on one side of a point, y[fStart + k * fStep] for k from 0 to fLast.
struct TSide
{
    const double *fY;
    int fStart;
    int fStep;
    int fLast;

    double at(int k) const { return fY[fStart + std::ptrdiff_t(k) * fStep]; }
};

TSide sideOf(const double *y, int n, int i, int step)
{
    return {y, i, step, step > 0 ? (n - 1 - i) / step : i / -step};
}

/// Whether a flank goes on from one value to the next: peaks pointing up fall strictly, those pointing down may stay
/// level. Never with a NaN.
bool falls(double from, double to, bool up)
{
    return up ? from > to : from <= to;
}

/// How many steps a side falls without a break.
int flankLength(const TSide &side, bool up)
{
    int k = 0;
    while (k < side.fLast && falls(side.at(k), side.at(k + 1), up))
        ++k;
    return k;
}

/// Where a flank reaches the half height, in points from the peak.
struct THalf
{
    double fDistance;
    bool fCrossed;
};

/// A walk down the flank would stop at the first value beyond `half` or, without a crossing, where the flank breaks.
/// The flank is monotone, so a bisection finds the same value.
THalf halfWidth(const TSide &side, int length, double half, bool up)
{
    const auto beyond = [&](int k) { return (half > side.at(k)) == up; };
    int low = 0; // the last step known to be before the crossing
    int high = length + 1;
    while (high - low > 1) {
        const int middle = low + (high - low) / 2;
        (beyond(middle) ? high : low) = middle;
    }
    const bool crossed = high <= side.fLast && beyond(high);
    const double value = crossed ? side.at(high) : 0.0;
    const double before = crossed ? side.at(high - 1) : 0.0;
    const double fraction = crossed && before != value ? (half - value) / (before - value) : 1.0;
    return {high - fraction, crossed};
}

double fullWidth(const THalf &right, const THalf &left)
{
    if (right.fCrossed == left.fCrossed)
        return right.fDistance + left.fDistance;
    return 2.0 * (right.fCrossed ? right.fDistance : left.fDistance);
}

/// Measures peaks from left to right. No point stands on the left flanks of two peaks, for the data have gone back
/// between them. Peaks on one right flank, which a negative delta can make, share its end.
class TFlanks
{
public:
    TFlanks(const double *y, int n)
        : fY(y)
        , fCount(n)
    {
    }

    /// 0 where no parabola fits.
    double width(int i)
    {
        TVertex vertex;
        if (!vertexAt(fY, fCount, i, 1, vertex))
            return 0.0;
        const bool up = pointsUp(fY[i], TYrexPeakDetector::cBySign);
        const TSide right = sideOf(fY, fCount, i, 1);
        const TSide left = sideOf(fY, fCount, i, -1);
        if (i > fRightEnd)
            fRightEnd = i + flankLength(right, up);
        const double half = vertex.fHeight / 2.0;
        return fullWidth(halfWidth(right, fRightEnd - i, half, up), halfWidth(left, flankLength(left, up), half, up));
    }

private:
    const double *fY;
    int fCount;
    int fRightEnd = -1; // of the flank that was measured last
};

/// Follows the data and reports an extreme as soon as the data have gone back from it by more than delta. Written for
/// maxima; the sign -1 turns it round for minima.
class THysteresis
{
public:
    THysteresis(double first, float delta)
        : fDelta(delta)
        , fExtreme(first)
        , fBefore(first)
        , fAfter(first)
    {
    }

    /// The next maximum candidate passed by `value` at i: its index, -1 when there is none.
    int maximum(double value, int i)
    {
        if (fAfter > value) {
            fAfter = value;
            const bool found = fExtreme > fDelta + value && fExtreme > fDelta + fBefore;
            return settle(value, i, found, fBefore > value);
        }
        if (value > fExtreme)
            rise(value, i);
        return -1;
    }
    int minimum(double value, int i)
    {
        if (value > fAfter) {
            fAfter = value;
            const bool found = value - fDelta > fExtreme && fBefore - fDelta > fExtreme;
            return settle(value, i, found, value > fBefore);
        }
        if (fExtreme > value)
            rise(value, i);
        return -1;
    }

private:
    int settle(double value, int i, bool found, bool restart)
    {
        const int index = found ? fIndex : -1;
        if (found || restart) {
            fBefore = fExtreme = value;
            fIndex = i;
        }
        return index;
    }
    void rise(double value, int i)
    {
        fAfter = fExtreme = value;
        fIndex = i;
    }

    double fDelta;
    double fExtreme; // the candidate
    double fBefore;  // the furthest value before it, on the other side
    double fAfter;   // and after it
    int fIndex = 0;
};

/// One walk of nearestExtreme.
int climb(const TSide &side, double level, bool up)
{
    const auto counted = [level](double value) {
        return level > 0.0 ? (value > level ? value : 0.0) : (value < level ? value : 0.0);
    };
    const auto goesOn = [&](double from, double to) {
        if (level > 0.0)
            return counted(to) >= counted(from);
        if (level < 0.0)
            return counted(to) <= counted(from);
        return up ? to > from : to < from;
    };
    int k = 0;
    while (k < side.fLast && goesOn(side.at(k), side.at(k + 1)))
        ++k;
    return side.fStart + k * side.fStep;
}

} // namespace

void TYrexPeakDetector::detectPeaks(const double *w, int n, TYrexDPLib::TYrexDPPeakList &peaks, int maxPeaks,
                                    float delta, float minHeight, bool refine, int direction)
{
    constexpr double cBeyond = std::numeric_limits<double>::max();
    if (n < 1)
        return;
    TFlanks flanks(w, n);
    THysteresis hysteresis(w[0], delta);
    const bool maxima = direction == cMaxima;
    for (int i = 0; i <= n && peaks.size() < maxPeaks; ++i) {
        // the sample behind the end lets an extreme at the end be seen from both sides
        const double value = i < n ? w[i] : maxima ? -cBeyond : cBeyond;
        const int p = maxima ? hysteresis.maximum(value, i) : hysteresis.minimum(value, i);
        if (p < 0 || !(maxima ? w[p] > 0.0 : w[p] < 0.0) || !(std::fabs(w[p]) > minHeight))
            continue;
        auto *peak = new TYrexDPLib::TYrexDPPeak;
        const int refined = refine ? nearestExtreme(w, n, p, 0.0, 1, cUp) : p;
        peak->position = refined < 1 || refined >= n - 1 ? p : refined;
        peak->width = flanks.width(p);
        peaks.append(peak);
    }
}

double TYrexPeakDetector::peakShape(const double *y, int n, int i, double &height, double &width, int stride, int mode)
{
    TVertex vertex;
    if (!vertexAt(y, n, i, stride, vertex))
        return i;
    const bool up = pointsUp(y[i], mode);
    const double half = vertex.fHeight / 2.0;
    const TSide right = sideOf(y, n, i, stride);
    const TSide left = sideOf(y, n, i, -stride);
    height = vertex.fHeight;
    width =
        fullWidth(halfWidth(right, flankLength(right, up), half, up), halfWidth(left, flankLength(left, up), half, up));
    return i + vertex.fShift;
}

int TYrexPeakDetector::nearestExtreme(const double *y, int n, int i, double level, int stride, int mode)
{
    if (n < 1)
        return 0;
    const int start = qBound(0, i, n - 1);
    const bool up = pointsUp(y[start], mode);
    const auto walk = [&](int from, int step) { return climb(sideOf(y, n, from, step), level, up); };
    const int rightFirst = walk(walk(start, stride), -stride);
    const int leftFirst = walk(walk(start, -stride), stride);
    const auto inside = [n](int index) { return index >= 1 && index <= n - 2; };
    const bool rightIsNearer = std::abs(rightFirst - start) < std::abs(leftFirst - start);
    const int nearer = rightIsNearer ? rightFirst : leftFirst;
    if (inside(nearer))
        return nearer;
    const int other = rightIsNearer ? leftFirst : rightFirst;
    return inside(other) ? other : start;
}
