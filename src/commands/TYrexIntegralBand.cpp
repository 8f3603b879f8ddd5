#include "TYrexIntegralBand.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"

namespace {

bool assignPlace(double &place, double value)
{
    const double before = place;
    place = value >= 0.0 ? qMin(value, 1.0) : 0.0; // NaN too
    return place != before;
}

} // namespace

TYrexIntegralBand TYrexIntegralBand::of(T1DYrexPlot &plot)
{
    const TYrexIntegralPlotProperties &properties = plot.integralProperties();
    return {properties.rangeMargin, properties.curveMargin, properties.curveMaxHeight};
}

bool TYrexIntegralBand::giveTo(T1DYrexPlot &plot) const
{
    TYrexIntegralPlotProperties &properties = plot.integralProperties();
    const bool range = assignPlace(properties.rangeMargin, fRangeMargin);
    const bool margin = assignPlace(properties.curveMargin, fCurveMargin);
    const bool height = assignPlace(properties.curveMaxHeight, fCurveMaxHeight);
    return range || margin || height;
}

TScriptStep TYrexIntegralBand::scriptStep(const TCanvasItemList &items)
{
    TCanvasItemList shown;
    QVariantList bands;
    for (ICanvasItem *item : items) {
        T1DYrexPlot *plot = yrexItem(item)->activeYrexPlot();
        if (!plot)
            continue;
        const TYrexIntegralBand band = of(*plot);
        shown.append(item);
        bands.append(QVariantMap{
            {"labels", band.fRangeMargin}, {"curves", band.fCurveMargin}, {"curveHeight", band.fCurveMaxHeight}});
    }
    return TScriptStep("placeIntegrals").on(shown).with("bands", bands);
}
