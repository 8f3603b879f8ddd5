// What T1DYrexPlot tells of a place.
#include "T1DYrexPlot.h"

#include "IYrexPlotData.h"
#include "IYrexPlotable.h"
#include "TYrexDataView.h"
#include "TYrexUnits.h"
#include "settings/TNumberFormat.h"

#include <algorithm>
#include <cmath>

namespace {

QString withUnit(double value, int decimals, int unit)
{
    return QString("%1 %2").arg(TNumberFormat::fixed(value, decimals), yrexUnitShortName(unit)).trimmed();
}

/// The place of the first value that is not before x on a series that runs one way.
int placeOf(const TYrexDataView &xs, double x)
{
    const bool descends = xs.values[xs.count - 1] < xs.values[0];
    const double *end = xs.values + xs.count;
    const double *found =
        descends ? std::lower_bound(xs.values, end, x, std::greater<double>()) : std::lower_bound(xs.values, end, x);
    return int(found - xs.values);
}

/// The height of a curve at x, between its points on the straight line; NaN beside it.
double heightAt(const TYrexDataView &xs, const TYrexDataView &ys, double x)
{
    const int count = std::min(xs.count, ys.count);
    const int place = count > 0 ? placeOf(xs, x) : 0;
    if (place < count && xs.values[place] == x)
        return ys.values[place];
    if (place <= 0 || place >= count)
        return std::nan("");
    const double share = (x - xs.values[place - 1]) / (xs.values[place] - xs.values[place - 1]);
    return ys.values[place - 1] + share * (ys.values[place] - ys.values[place - 1]);
}

} // namespace

TPlotReadout T1DYrexPlot::readout(const QPointF &itemPos) const
{
    TPlotReadout readout = T1DStackedPlot::readout(itemPos);
    IYrexPlotData *plotData = data();
    if (!readout.fIsValid || !plotData)
        return readout;
    const int pointed = fPlotter.indexOfPointedStackedCurve(itemPos);
    const int index = pointed >= 0 ? pointed : plotData->currentIndex();
    const double x = readout.fPoint.x();
    const int decimals = viewDecimals(horzDir);
    readout.fX = withUnit(x, decimals, fXUnits);
    const int second = yrexSecondUnit(fXUnits);
    if (second >= 0 && x > 0.0) {
        // as many digits as tell the same two places apart
        const double other = yrexConvertX(x, fXUnits, second);
        const double step = std::abs(other / x) * std::pow(10.0, -decimals);
        const int otherDecimals = int(std::clamp(std::ceil(-std::log10(step)), 0.0, 8.0));
        readout.fSecondX = withUnit(other, otherDecimals, second);
        readout.fSecond = other;
        readout.fSecondDecimals = otherDecimals;
        readout.fSecondUnit = yrexUnitShortName(second);
    }
    readout.fIndex = index;
    readout.fCount = plotData->spectrumCount();
    readout.fTitle = fPlotable ? fPlotable->titleText(id(), fTitleProperties.format, 0, index) : QString();
    const double y = heightAt(plotData->axisData(0, fXUnits, index), plotData->axisData(1, fYUnits, index), x);
    if (std::isfinite(y)) {
        readout.fPoint.setY(y);
        // rows share the height, so the axis tells nothing of the digits of y
        const int yDecimals = hasRows() ? 4 : viewDecimals(vertDir);
        readout.fY = TNumberFormat::fixed(y, yDecimals);
    }
    return readout;
}

bool T1DYrexPlot::curvePoint(int index, double x, int step, QPointF &point) const
{
    IYrexPlotData *plotData = data();
    if (!plotData || index >= plotData->spectrumCount())
        return false;
    const TYrexDataView xs = plotData->axisData(0, fXUnits, index);
    const TYrexDataView ys = plotData->axisData(1, fYUnits, index);
    const int count = std::min(xs.count, ys.count);
    if (count < 1)
        return false;
    int place = std::clamp(placeOf(xs, x), 0, count - 1);
    if (place > 0 && std::abs(xs.values[place - 1] - x) < std::abs(xs.values[place] - x))
        --place;
    place = std::clamp(place + step, 0, count - 1);
    point = QPointF(xs.values[place], ys.values[place]);
    return true;
}
