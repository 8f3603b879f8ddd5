#include "TYrexPeakWidth.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double cHalf = 0.5;

/// Values with the peak upwards.
struct THeights
{
    const QVector<double> &fY;
    double fSign;

    double at(int i) const { return fSign * fY.at(i); }
    int count() const { return fY.size(); }
};

/// The highest point within one of the position; the nearest where they are level.
int summitNear(const THeights &heights, double position)
{
    const int place = int(std::lround(position));
    int summit = place;
    for (const int i : {place - 1, place + 1}) {
        if (i >= 0 && i < heights.count() && heights.at(i) > heights.at(summit))
            summit = i;
    }
    return summit;
}

/// The lowest value on one side, up to the first that is higher than the summit.
double lowest(const THeights &heights, int summit, int step)
{
    double low = heights.at(summit);
    for (int i = summit + step; i >= 0 && i < heights.count() && !(heights.at(i) > heights.at(summit)); i += step)
        low = std::min(low, heights.at(i));
    return low;
}

/// Where the flank falls below the level, in points; it does so before the data end, since the ground is lower.
double crossing(const THeights &heights, int summit, int step, double level)
{
    int i = summit;
    while (i + step >= 0 && i + step < heights.count() && heights.at(i) > level)
        i += step;
    const double below = heights.at(i);
    const double above = i == summit ? below : heights.at(i - step);
    const double back = above > below ? std::min(1.0, (level - below) / (above - below)) : 0.0;
    return i - step * std::max(0.0, back);
}

TYrexPeakWidth::TSpan measureOneWay(const THeights &heights, double position)
{
    const int summit = summitNear(heights, position);
    const double top = heights.at(summit);
    const double ground = std::max(lowest(heights, summit, -1), lowest(heights, summit, 1));
    if (!(top > ground) || !std::isfinite(top - ground))
        return TYrexPeakWidth::TSpan();
    const double level = top - cHalf * (top - ground);
    return {crossing(heights, summit, -1, level), crossing(heights, summit, 1, level)};
}

} // namespace

TYrexPeakWidth::TSpan TYrexPeakWidth::measure(const QVector<double> &y, double position, bool isUp)
{
    if (!(position >= 0.0 && position <= y.size() - 1))
        return TSpan();
    const double sign = isUp ? 1.0 : -1.0;
    const TSpan span = measureOneWay({y, sign}, position);
    return span.isValid() ? span : measureOneWay({y, -sign}, position);
}
