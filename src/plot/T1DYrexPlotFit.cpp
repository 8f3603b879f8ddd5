// The vertical fit of T1DYrexPlot.
#include "T1DYrexPlot.h"

#include "IYrexPlotData.h"
#include "TYrexUnits.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double cLargest = std::numeric_limits<double>::max();
constexpr double cSmallest = std::numeric_limits<double>::min();
constexpr double cFitMargin = 0.08; // of the height, above and below

/// Positions of a series in ascending order of its values.
class TAscending
{
public:
    explicit TAscending(const TYrexDataView &view)
        : fView(view)
    {
    }
    int count() const { return fView.count; }
    int index(int position) const { return fView.descending ? fView.count - 1 - position : position; }
    double at(int position) const { return fView.values[index(position)]; }

private:
    const TYrexDataView &fView;
};

} // namespace

/// What is in view is searched in wavenumbers, which all lengths have. A length of zero has none: then, and for units
/// that are not known, the search goes by the values as they are shown.
int T1DYrexPlot::searchUnit() const
{
    const bool isLength = fXUnits == cUnitNanometers || fXUnits == cUnitMicrometers;
    const bool hasZero = isLength && (horzAxis().getScale().lo() <= 0.0 || horzAxis().getFullScale().lo() <= 0.0);
    return fXUnits == cUnitArbitrary || hasZero ? int(fXUnits) : int(cUnitWavenumber);
}

TRanges T1DYrexPlot::visibleIn(int unit) const
{
    const auto convert = [this, unit](double x) { return yrexConvertX(x, fXUnits, unit); };
    TRanges ranges;
    for (const TRange &range : horzRanges().toVector())
        ranges.appendRange(TRange(convert(range.a), convert(range.b)).sorted());
    const TRange scale = horzAxis().getScale();
    return ranges.adjustTo(TRange(convert(scale.a), convert(scale.b)).sorted());
}

bool T1DYrexPlot::extremesInView(IYrexPlotData &plotData, int index, int unit, double &minY, double &maxY) const
{
    const TRanges visible = visibleIn(unit);
    const TYrexDataView x = plotData.axisData(0, unit, index);
    const TYrexDataView y = plotData.axisData(1, fYUnits, index);
    if (!x.isValid() || !y.isValid() || y.count < x.count) // data that were cleared have no height
        return false;
    const TAscending ascending(x);
    const int count = x.count;
    double low = cLargest;
    double high = cSmallest;
    const auto search = [&](int from, int to) {
        for (int position = from; position < to; ++position) {
            const double value = y.values[ascending.index(position)];
            low = value < low ? value : low;
            high = value > high ? value : high;
        }
    };
    bool anyRange = false;
    int position = 0;
    for (const TRange &range : visible.toVector()) {
        while (position < count && ascending.at(position) < range.lo())
            ++position;
        const int first = position;
        while (position < count && !(ascending.at(position) > range.hi()))
            ++position;
        if (position > first) {
            anyRange = true;
            search(first + 1, position);
        }
    }
    if (!anyRange && visible.isEmpty())
        search(0, count);
    if (low > high || low == cLargest)
        return false;
    minY = qMin(minY, low);
    maxY = qMax(maxY, high);
    return true;
}

TLinearMap T1DYrexPlot::drawnHeights(int index) const
{
    const IYrexPlotData *plotData = data();
    const T1DStackedPlotProperties &own = stackedProperties();
    if (!plotData || !isArrayed() || own.displayMode() != overlayMode || index < 0 ||
        index >= plotData->spectrumCount())
        return TLinearMap();
    const quint32 id = plotData->spectrumId(index);
    const double base = fPlotter.baselineScaleValue();
    return {own.factor(id), base * (1.0 - own.factor(id)) + own.offset(id)};
}

bool T1DYrexPlot::heightInView(double &minY, double &maxY) const
{
    IYrexPlotData *plotData = data();
    if (!plotData)
        return false;
    const int unit = searchUnit();
    minY = cLargest;
    maxY = cSmallest;
    bool anyFound = false;
    for (const int index : plotData->visibleIndices()) {
        double low = cLargest;
        double high = cSmallest;
        if (!extremesInView(*plotData, index, unit, low, high))
            continue;
        anyFound = true;
        const TLinearMap heights = drawnHeights(index);
        minY = std::min({minY, heights(low), heights(high)});
        maxY = std::max({maxY, heights(low), heights(high)});
    }
    if (anyFound)
        return true;
    const auto whole = plotData->axisRange(1, fXUnits, fYUnits);
    if (std::fabs(whole.first) == cLargest || std::fabs(whole.second) == cLargest)
        return false;
    minY = qMin(whole.first, whole.second);
    maxY = qMax(whole.first, whole.second);
    return true;
}

void T1DYrexPlot::fitTo(double minY, double maxY)
{
    const double height = maxY - minY;
    if (!(height > cSmallest && height < cLargest))
        return;
    TAxis &axis = isArrayed() ? intensityAxis() : vAxis();
    TRanges &ranges = isArrayed() ? intensityRanges() : vRanges();
    const TRange full = directed(vertDir, minY - cFitMargin * height, maxY + cFitMargin * height);
    setFullScale(axis, ranges, full.a, full.b);
    axis.setScaleToFull();
}

void T1DYrexPlot::fitToHeight()
{
    double minY = 0.0;
    double maxY = 0.0;
    if (heightInView(minY, maxY))
        fitTo(minY, maxY);
}

void T1DYrexPlot::keepCurveInView()
{
    double minY = 0.0;
    double maxY = 0.0;
    if (!heightInView(minY, maxY))
        return;
    const TRange scale = (isArrayed() ? intensityAxis() : vAxis()).getScale();
    const auto isInside = [&scale](double y) { return y > scale.lo() && y < scale.hi(); };
    const double share = (maxY - minY) / std::fabs(scale.hi() - scale.lo());
    if ((isInside(maxY) || isInside(minY)) && share > cFitMargin)
        return;
    fitTo(minY, maxY);
}
