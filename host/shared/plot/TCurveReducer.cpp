#include "plot/TCurveReducer.h"
#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr double cFarAway = 1e9; // device pixels or canvas units: no slope that can be seen changes there

double held(double value)
{
    return std::max(-cFarAway, std::min(cFarAway, value));
}

} // namespace

TCurveReducer::TCurveReducer(const T1DPlotData<double> &x, const T1DPlotData<double> &y)
    : fX(series(x))
    , fY(series(y))
    , fCount(x.isEmpty() || y.isEmpty() ? 0 : std::min(x.count, y.count))
{
}

TCurveReducer::TSeries TCurveReducer::series(const T1DPlotData<double> &data)
{
    return {data.data, data.step};
}

bool TCurveReducer::isPoint(int i) const
{
    return std::isfinite(fX.at(i)) && std::isfinite(fY.at(i));
}

bool TCurveReducer::isMonotonic() const
{
    if (fCount < 2)
        return fCount == 0 || std::isfinite(fX.at(0));
    const bool falls = fX.at(fCount - 1) < fX.at(0);
    bool holds = std::isfinite(fX.at(0)) && std::isfinite(fX.at(fCount - 1));
    for (int i = 1; i < fCount && holds; ++i) // a NaN fails either comparison
        holds = falls ? fX.at(i) <= fX.at(i - 1) : fX.at(i) >= fX.at(i - 1);
    return holds;
}

void TCurveReducer::appendColumn(QVector<int> &kept, int first, int lowest, int highest, int last) const
{
    if (last - first < cKept) {
        for (int i = first; i <= last; ++i)
            kept.append(i);
        return;
    }
    const int early = std::min(lowest, highest);
    const int late = std::max(lowest, highest);
    kept.append(first);
    if (early != first)
        kept.append(early);
    if (late != early && late != first)
        kept.append(late);
    if (last != late)
        kept.append(last);
}

/// Behind the points from `first` on that share its column, found by bisection as x is monotonic; `first` where they
/// are too few to be worth it.
int TCurveReducer::columnEnd(int first, int end, const TLinearMap &column) const
{
    constexpr int cWorthIt = 32;
    const double left = std::floor(column(fX.at(first)));
    const double right = left + 1.0;
    const auto isInside = [&](int i) {
        const double place = column(fX.at(i));
        return place >= left && place < right;
    };
    int inside = first + cWorthIt - 1;
    if (inside >= end || !isInside(inside))
        return first;
    int outside = end;
    for (int stride = cWorthIt; stride < end - inside; stride *= 2) {
        if (!isInside(inside + stride)) {
            outside = inside + stride;
            break;
        }
        inside += stride;
    }
    while (outside - inside > 1) {
        const int middle = inside + (outside - inside) / 2;
        (isInside(middle) ? inside : outside) = middle;
    }
    return outside;
}

/// The first of the lowest and of the highest values, several looked at at once; false where one is not finite.
bool TCurveReducer::findExtremes(int first, int end, int &lowest, int &highest) const
{
    constexpr int cLanes = 8;
    const double *y = fY.first;
    double lows[cLanes];
    double highs[cLanes];
    double differences[cLanes] = {}; // of each value from itself: NaN where it is not finite
    std::fill(lows, lows + cLanes, y[first]);
    std::fill(highs, highs + cLanes, y[first]);
    int i = first;
    for (; i + cLanes <= end; i += cLanes) {
        for (int lane = 0; lane < cLanes; ++lane) {
            const double value = y[i + lane];
            lows[lane] = value < lows[lane] ? value : lows[lane];
            highs[lane] = value > highs[lane] ? value : highs[lane];
            differences[lane] += value - value;
        }
    }
    for (; i < end; ++i) {
        lows[0] = std::min(lows[0], y[i]);
        highs[0] = std::max(highs[0], y[i]);
        differences[0] += y[i] - y[i];
    }
    if (std::accumulate(differences, differences + cLanes, 0.0) != 0.0)
        return false;
    const double low = *std::min_element(lows, lows + cLanes);
    const double high = *std::max_element(highs, highs + cLanes);
    lowest = int(std::find(y + first, y + end, low) - y);
    highest = int(std::find(y + first, y + end, high) - y);
    return true;
}

QVector<int> TCurveReducer::indices(const TLinearMap &column, double from, double to, bool monotonic) const
{
    int begin = 0;
    int end = fCount;
    if (monotonic && fCount > 0) {
        const bool rises = column(fX.at(fCount - 1)) >= column(fX.at(0));
        const auto firstBeyond = [&](double limit) { // first index whose column lies behind the limit
            int low = 0;
            int high = fCount;
            while (low < high) {
                const int middle = low + (high - low) / 2;
                const double place = column(fX.at(middle));
                if (rises ? place > limit : place < limit)
                    high = middle;
                else
                    low = middle + 1;
            }
            return low;
        };
        // equal places at the near end stay in, so one more step back
        begin = std::max(0, firstBeyond(rises ? from : to) - 1);
        while (begin > 0 && column(fX.at(begin)) == (rises ? from : to))
            --begin;
        end = std::min(fCount, firstBeyond(rises ? to : from) + 1);
    }

    QVector<int> kept;
    int i = begin;
    int pieced = begin; // up to here gaps part a column
    while (i < end) {
        if (!isPoint(i)) {
            if (!kept.isEmpty() && kept.last() != cBreak)
                kept.append(cBreak);
            ++i;
            continue;
        }
        if (monotonic && fY.step == 1 && i >= pieced) {
            const int columnsEnd = columnEnd(i, end, column);
            int low = i;
            int high = i;
            if (columnsEnd > i && findExtremes(i, columnsEnd, low, high)) {
                appendColumn(kept, i, low, high, columnsEnd - 1);
                i = columnsEnd;
                continue;
            }
            pieced = columnsEnd;
        }
        const double left = std::floor(column(fX.at(i)));
        const double right = left + 1.0;
        const int first = i;
        int lowest = i;
        int highest = i;
        double minimum = fY.at(i);
        double maximum = minimum;
        for (++i; i < end; ++i) {
            const double place = column(fX.at(i));
            const double value = fY.at(i);
            if (!(place >= left && place < right) || !std::isfinite(value))
                break;
            if (value < minimum) {
                minimum = value;
                lowest = i;
            } else if (value > maximum) {
                maximum = value;
                highest = i;
            }
        }
        appendColumn(kept, first, lowest, highest, i - 1);
    }
    if (!kept.isEmpty() && kept.last() == cBreak)
        kept.removeLast();
    return kept;
}

QVector<QVector<QPointF>> TCurveReducer::polylines(const QVector<int> &indices, const TLinearMap &mapX,
                                                   const TLinearMap &mapY) const
{
    QVector<QVector<QPointF>> lines;
    QVector<QPointF> line;
    for (const int i : indices) {
        if (i != cBreak) {
            line.append(QPointF(held(mapX(fX.at(i))), held(mapY(fY.at(i)))));
            continue;
        }
        lines.append(line);
        line.clear();
    }
    if (!line.isEmpty())
        lines.append(line);
    return lines;
}
