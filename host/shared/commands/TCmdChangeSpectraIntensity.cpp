#include "commands/TCmdChangeSpectraIntensity.h"

#include "canvas/TCanvasSpectrum.h"
#include "contexts/TSpectrumItemCtx.h"
#include "history/THistoryCommand.h"
#include "plot/T1DStackedPlotProperties.h"
#include "plot/TBasePlot.h"

TCmdChangeSpectraIntensity::TCmdChangeSpectraIntensity(const TCanvasItemList &items, bool up, double factor)
    : TStackValuesCommand(up ? tr("Increase Intensity") : tr("Decrease Intensity"), items)
    , fUp(up)
    , fFactor(factor)
{
    setMergeableFlag(true);
}

TCmdChangeSpectraIntensity::TCmdChangeSpectraIntensity(const TCanvasItemList &items, const QMap<int, double> &factors)
    : TStackValuesCommand(tr("Set Spectrum Factor"), items, factors)
{
}

void TCmdChangeSpectraIntensity::changeView(TCanvasSpectrum &item, TBasePlot &)
{
    for (TBasePlot *plot : item.plots())
        TSpectrumItemCtx(&item, plot).changeIntensity(fUp, fFactor);
}

double TCmdChangeSpectraIntensity::stackValue(const T1DStackedPlotProperties &properties, quint32 id) const
{
    return properties.factor(id);
}

void TCmdChangeSpectraIntensity::setStackValue(T1DStackedPlotProperties &properties, quint32 id, double value) const
{
    properties.setFactor(id, value);
}

void TCmdChangeSpectraIntensity::describe(THistoryCommand &entry) const
{
    TStackValuesCommand::describe(entry);
    if (!hasValues())
        entry.addParam("Factor", fFactor * TBasePlot::cDefIntensityFactor, QString());
}

TScriptStep TCmdChangeSpectraIntensity::scriptStep() const
{
    if (hasValues())
        return TScriptStep("setFactors").on(items()).with("factors", TScriptStep::byIndex(values()));
    TScriptStep step(fUp ? "increaseIntensity" : "decreaseIntensity");
    step.on(items());
    return fFactor == 1.0 ? step : step.with("factor", fFactor);
}
