#include "plot/TSecondAxisTicks.h"
#include "plot/TAxisTicks.h"
#include <cmath>

namespace {

constexpr int cEnough = 4;           // numbers
constexpr int cMostLevels = 4;       // decades below the span
constexpr int cMostIntervals = 1000; // of one level; a span within one decade has ten
constexpr double cLabelGap = 1.8;    // label widths per number
constexpr double cMinorGap = 9.0;    // canvas units between two minor ticks

int mantissa(double step)
{
    return qRound(step / std::pow(10.0, std::floor(std::log10(step) + 1e-9)));
}

} // namespace

TSecondAxisTicks::TSecondAxisTicks(const TRange &span, const TPlace &place, const TExtent &extent)
    : fSpan(span.sorted())
    , fPlace(place)
    , fExtent(extent)
{
    if (!fSpan.isFinite() || !(fSpan.span() > 0.0))
        return;
    const double top = std::pow(10.0, std::ceil(std::log10(fSpan.span())));
    QVector<TInterval> intervals;
    const double first = std::floor(fSpan.a / top);
    for (int i = 0; (first + i) * top < fSpan.b && i < cMostIntervals; ++i)
        intervals.append({(first + i) * top, (first + i + 1) * top, top});
    for (int level = 0; level < cMostLevels && inView(intervals).size() < cEnough; ++level)
        intervals = refined(intervals, true);
    intervals = refined(intervals, false); // where there is room for the whole steps of this decade
    fMajor = inView(intervals);
    double finest = top;
    for (const TInterval &each : qAsConst(intervals)) {
        finest = std::min(finest, each.step);
        const int parts = mantissa(each.step) == 2 ? 4 : 5;
        if (!fits(each, parts, cMinorGap, false, 1))
            continue;
        for (int i = 1; i < parts; ++i) {
            const double value = each.from + (each.to - each.from) * i / parts;
            double at = 0.0;
            if (fSpan.contains(value) && fPlace(value, at))
                fMinor.append(value);
        }
    }
    for (const double value : qAsConst(fMajor))
        fLabels.append(label(value, finest));
}

QString TSecondAxisTicks::label(double value, double step) const
{
    return TAxisTicks::number(value, std::max(0, -int(std::floor(std::log10(step) + 1e-9))));
}

/// Whether the parts of an interval that are in view, at least so many, stand far enough from each other.
bool TSecondAxisTicks::fits(const TInterval &interval, int parts, double leastGap, bool measured, int leastShown) const
{
    const double step = (interval.to - interval.from) / parts;
    bool isLastShown = false;
    int shown = 0;
    double last = 0.0;
    for (int i = 0; i <= parts; ++i) {
        const double value = interval.from + i * step;
        double at = 0.0;
        const bool isShown = fSpan.contains(value) && fPlace(value, at);
        const double gap = measured ? cLabelGap * fExtent(label(value, step)) : leastGap;
        if (isShown && isLastShown && std::abs(at - last) < gap)
            return false;
        shown += isShown ? 1 : 0;
        isLastShown = isShown;
        last = at;
    }
    return shown >= leastShown;
}

QVector<TSecondAxisTicks::TInterval> TSecondAxisTicks::refined(const QVector<TInterval> &intervals,
                                                               bool alsoDecades) const
{
    const int leastShown = alsoDecades ? 1 : 2; // one alone at the border says nothing of the room for its neighbours
    QVector<TInterval> result;
    for (const TInterval &each : intervals) {
        int parts = 1;
        const int unit = mantissa(each.step);
        for (const int tried : {10, 5, 2}) {
            const bool isRound = (unit == 1 && alsoDecades) || (unit == 5 && tried == 5) || (unit == 2 && tried == 2);
            if (parts == 1 && isRound && fits(each, tried, 0.0, true, leastShown))
                parts = tried;
        }
        const double step = (each.to - each.from) / parts;
        for (int i = 0; i < parts; ++i) {
            const double from = each.from + i * step;
            const double to = i + 1 == parts ? each.to : each.from + (i + 1) * step;
            if (to >= fSpan.a && from <= fSpan.b)
                result.append({from, to, step});
        }
    }
    return result;
}

QVector<double> TSecondAxisTicks::inView(const QVector<TInterval> &intervals) const
{
    QVector<double> values;
    for (int i = 0; i <= intervals.size(); ++i) {
        const double value = i < intervals.size()  ? intervals.at(i).from
                             : intervals.isEmpty() ? 0.0
                                                   : intervals.last().to;
        double at = 0.0;
        if (!intervals.isEmpty() && fSpan.contains(value) && fPlace(value, at))
            values.append(value);
    }
    return values;
}
