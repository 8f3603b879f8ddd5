#include "plot/TCurveCache.h"
#include <cstring>

namespace {

constexpr int cMaxPoints = 2000000; // of all curves that are kept, 32 MB
constexpr int cMaxStamps = 10000;   // of axes whose course is remembered

int pointCount(const TReducedCurve &curve)
{
    int count = 0;
    for (const QVector<QPointF> &line : curve.lines)
        count += line.size();
    return count;
}

} // namespace

bool TCurveCache::TEntry::isFor(const TEntry &other) const
{
    return checksum == other.checksum && count == other.count && mapX == other.mapX && mapY == other.mapY &&
           from == other.from && to == other.to && columnWidth == other.columnWidth;
}

/// Four sums side by side, so that the processor can work on them at once.
quint64 TCurveCache::checksum(const T1DPlotData<double> &data, int count)
{
    constexpr quint64 cPrime = Q_UINT64_C(0x9E3779B97F4A7C15);
    if (data.stamp != 0)
        return (data.stamp ^ (quint64(count) << 32)) * cPrime;
    quint64 sums[4] = {1, 2, 3, 4};
    const double *values = data.data;
    const qptrdiff stride = data.step;
    const auto mixIn = [&](int lane, qptrdiff place) {
        quint64 bits = 0;
        std::memcpy(&bits, values + place, sizeof(bits));
        bits ^= bits >> 32; // the low half of most doubles is empty, and a product only moves bits up
        sums[lane] = (sums[lane] ^ bits) * cPrime;
    };
    int i = 0;
    for (; i + 4 <= count; i += 4) {
        for (int lane = 0; lane < 4; ++lane)
            mixIn(lane, (i + lane) * stride);
    }
    for (; i < count; ++i)
        mixIn(0, i * stride);
    quint64 sum = quint64(count);
    for (const quint64 part : sums)
        sum = (sum ^ part ^ (part >> 32)) * cPrime;
    return sum;
}

QSharedPointer<const TReducedCurve> TCurveCache::reduce(const TCurveReducer &reducer, bool monotonic,
                                                        const TLinearMap &mapX, const TLinearMap &mapY, double from,
                                                        double to, double columnWidth)
{
    const TLinearMap column = mapX.then({1.0 / columnWidth, 0.0});
    QSharedPointer<TReducedCurve> curve(new TReducedCurve);
    curve->monotonic = monotonic;
    const QVector<int> kept = reducer.indices(column, from / columnWidth, to / columnWidth, monotonic);
    curve->lines = reducer.polylines(kept, mapX, mapY);
    return curve;
}

QSharedPointer<const TReducedCurve> TCurveCache::reduce(const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                                                        const TLinearMap &mapX, const TLinearMap &mapY, double from,
                                                        double to, double columnWidth)
{
    const TCurveReducer reducer(x, y);
    return reduce(reducer, reducer.isMonotonic(), mapX, mapY, from, to, columnWidth);
}

bool TCurveCache::isMonotonic(const T1DPlotData<double> &x, const TCurveReducer &reducer)
{
    if (x.stamp == 0 || reducer.count() != x.count)
        return reducer.isMonotonic();
    const auto found = fMonotonic.constFind(x.stamp);
    if (found != fMonotonic.constEnd())
        return *found;
    if (fMonotonic.size() >= cMaxStamps) // series long gone
        fMonotonic.clear();
    return *fMonotonic.insert(x.stamp, reducer.isMonotonic());
}

QSharedPointer<const TReducedCurve> TCurveCache::reduced(const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                                                         const TLinearMap &mapX, const TLinearMap &mapY, double from,
                                                         double to, double columnWidth)
{
    const int count = x.isEmpty() || y.isEmpty() ? 0 : std::min(x.count, y.count);
    const quint64 sum = checksum(x, count) * 3 + checksum(y, count);
    TEntry wanted{sum, count, mapX, mapY, from, to, columnWidth, {}};
    for (int i = fEntries.size() - 1; i >= 0; --i) {
        if (fEntries.at(i).isFor(wanted)) {
            fEntries.move(i, fEntries.size() - 1);
            return fEntries.last().curve;
        }
    }
    const TCurveReducer reducer(x, y);
    wanted.curve = reduce(reducer, isMonotonic(x, reducer), mapX, mapY, from, to, columnWidth);
    fEntries.append(wanted);
    fPoints += pointCount(*wanted.curve);
    while (fPoints > cMaxPoints && fEntries.size() > 1)
        fPoints -= pointCount(*fEntries.takeFirst().curve);
    return wanted.curve;
}
