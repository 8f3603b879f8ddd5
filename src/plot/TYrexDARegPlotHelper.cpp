#include "TYrexDARegPlotHelper.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"

QVector<TDARegion> TYrexDARegPlotHelper::shownRegions(const QVector<TDARegion> &regions, int index) const
{
    const T1DYrexPlot *plot = fItem ? fItem->activeYrexPlot() : nullptr;
    if (!plot || !fItem->stack().at(index))
        return {};
    QVector<TDARegion> shown = regions;
    for (TDARegion &region : shown) {
        region.from = yrexConvertX(region.from, cUnitWavenumber, plot->xUnits());
        region.to = yrexConvertX(region.to, cUnitWavenumber, plot->xUnits());
    }
    return shown;
}
