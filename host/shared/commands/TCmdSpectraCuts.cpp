#include "commands/TCmdSpectraCuts.h"

#include "canvas/TCanvasSpectrum.h"
#include "contexts/TSpectrumItemCtx.h"
#include "history/THistoryCommand.h"

namespace {

QString descriptionOf(TCmdSpectraCuts::TMode mode)
{
    switch (mode) {
    case TCmdSpectraCuts::cHide:
        return TCmdSpectraCuts::tr("Hide Range");
    case TCmdSpectraCuts::cShow:
        return TCmdSpectraCuts::tr("Show Range");
    default:
        return TCmdSpectraCuts::tr("Show All Ranges");
    }
}

} // namespace

TCmdSpectraCuts::TCmdSpectraCuts(const TCanvasItemList &items, TMode mode, const TRange &range)
    : TViewCommand(descriptionOf(mode), items)
    , fMode(mode)
    , fRange(range)
{
}

void TCmdSpectraCuts::changeView(TCanvasSpectrum &item, TBasePlot &activePlot)
{
    TSpectrumItemCtx context(&item, &activePlot);
    if (fMode == cHide)
        context.hideRange(fRange);
    else if (fMode == cShow)
        context.showRange(fRange);
    else
        context.restoreRanges();
}

void TCmdSpectraCuts::describe(THistoryCommand &entry) const
{
    if (fMode != cRestoreAll)
        entry.addParam("Range", QVariantList({fRange.lo(), fRange.hi()}), QString());
}

TScriptStep TCmdSpectraCuts::scriptStep() const
{
    if (fMode == cRestoreAll)
        return TScriptStep("showAllRanges").on(items());
    return TScriptStep(fMode == cHide ? "hideRange" : "showRange")
        .on(items())
        .with("from", fRange.a)
        .with("to", fRange.b);
}
