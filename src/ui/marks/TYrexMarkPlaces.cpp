#include "TYrexMarkPlaces.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"

#include <algorithm>
#include <cmath>
#include <limits>

double YrexMarkPlaces::xAt(const TYrexSpectrum &spectrum, double place, int unit)
{
    return yrexConvertX(spectrum.firstX() + place * spectrum.xStep(), spectrum.origXUnits(), unit);
}

double YrexMarkPlaces::canvasX(const TCanvasYrexSpectrum &item, double place)
{
    const TYrexSpectrum *spectrum = item.currentSpectrum();
    const T1DYrexPlot *plot = item.activeYrexPlot();
    double x = std::nan("");
    if (spectrum && plot)
        plot->plotter()->scale2Canvas(horzDir, xAt(*spectrum, place, plot->xUnits()), x);
    return x;
}

QVector<TYrexMarkPlace> YrexMarkPlaces::inOrder(const TCanvasYrexSpectrum &item)
{
    const TYrexSpectrum *spectrum = item.currentSpectrum();
    if (!spectrum || !item.activeYrexPlot())
        return {};
    QVector<TYrexMarkPlace> marks;
    for (const TYrexDPLib::TYrexDPPeak *peak : spectrum->peaks())
        marks.append({peak->id, true, canvasX(item, peak->position)});
    for (const TYrexIntegrationRegion *region : spectrum->integrals())
        marks.append({region->id, false, canvasX(item, (region->boundA + region->boundB) / 2.0)});
    const auto place = [](const TYrexMarkPlace &mark) { // an order needs numbers
        return std::isnan(mark.fCanvasX) ? std::numeric_limits<double>::max() : mark.fCanvasX;
    };
    std::stable_sort(marks.begin(), marks.end(), [&place](const TYrexMarkPlace &l, const TYrexMarkPlace &r) {
        return l.fIsPeak != r.fIsPeak ? l.fIsPeak : place(l) < place(r);
    });
    return marks;
}
