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

TScriptStep TYrexIntegralBand::scriptStep(const TCanvasItemList &items, const QVector<TYrexIntegralBand> &before)
{
    TCanvasItemList shown;
    QVariantList bands;
    for (int i = 0; i < items.size(); ++i) {
        T1DYrexPlot *plot = yrexItem(items.at(i))->activeYrexPlot();
        if (!plot)
            continue;
        const TYrexIntegralBand now = of(*plot);
        QVariantMap told;
        if (now.fRangeMargin != before.at(i).fRangeMargin)
            told.insert("labels", now.fRangeMargin);
        if (now.fCurveMargin != before.at(i).fCurveMargin)
            told.insert("curves", now.fCurveMargin);
        if (now.fCurveMaxHeight != before.at(i).fCurveMaxHeight)
            told.insert("curveHeight", now.fCurveMaxHeight);
        shown.append(items.at(i));
        bands.append(told);
    }
    return TScriptStep("placeIntegrals").on(shown).with("bands", bands);
}
