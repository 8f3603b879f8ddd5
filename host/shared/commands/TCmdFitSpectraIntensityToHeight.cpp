#include "commands/TCmdFitSpectraIntensityToHeight.h"

#include "canvas/TCanvasSpectrum.h"
#include "contexts/TSpectrumItemCtx.h"

TCmdFitSpectraIntensityToHeight::TCmdFitSpectraIntensityToHeight(const TCanvasItemList &items)
    : TViewCommand(tr("Fit to Height"), items)
{
    setMergeableFlag(true);
}

void TCmdFitSpectraIntensityToHeight::changeView(TCanvasSpectrum &item, TBasePlot &activePlot)
{
    TSpectrumItemCtx(&item, &activePlot).fitToHeight();
}

TScriptStep TCmdFitSpectraIntensityToHeight::scriptStep() const
{
    return TScriptStep("fitToHeight").on(items());
}
