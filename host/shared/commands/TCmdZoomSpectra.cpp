#include "commands/TCmdZoomSpectra.h"

#include "canvas/TCanvasSpectrum.h"
#include "contexts/TSpectrumItemCtx.h"
#include "history/THistoryCommand.h"

TCmdZoomSpectra::TCmdZoomSpectra(const TCanvasItemList &items, const QRectF &rect, int flag)
    : TViewCommand(flag & cFullView ? tr("Full View") : tr("Zoom"), items)
    , fX(TRange(rect.left(), rect.right()).sorted())
    , fY(TRange(rect.top(), rect.bottom()).sorted())
    , fFullView(flag & cFullView)
{
    setMergeableFlag(true);
}

TCmdZoomSpectra::TCmdZoomSpectra(const TCanvasItemList &items, const TRange &x, const TRange &y)
    : TViewCommand(tr("Zoom"), items)
    , fX(x.sorted())
    , fY(y.sorted())
    , fFullView(false)
{
    setMergeableFlag(true);
}

void TCmdZoomSpectra::changeView(TCanvasSpectrum &item, TBasePlot &activePlot)
{
    TSpectrumItemCtx context(&item, &activePlot);
    const bool isAny = fX.span() > 0.0 || fY.span() > 0.0;
    if (fFullView || !isAny) {
        context.fullZoomOut();
        return;
    }
    if (fX.span() > 0.0)
        context.zoom(horzDir, fX.a, fX.b);
    if (fY.span() > 0.0) // behind the fit to the height that goes with the other axis
        context.zoom(vertDir, fY.a, fY.b);
}

void TCmdZoomSpectra::describe(THistoryCommand &entry) const
{
    if (fFullView)
        return;
    if (fX.span() > 0.0)
        entry.addParam("Horizontal", QVariantList({fX.a, fX.b}), QString());
    if (fY.span() > 0.0)
        entry.addParam("Vertical", QVariantList({fY.a, fY.b}), QString());
}

TScriptStep TCmdZoomSpectra::scriptStep() const
{
    const bool isAny = fX.span() > 0.0 || fY.span() > 0.0;
    if (fFullView || !isAny)
        return TScriptStep("fullView").on(items());
    TScriptStep step("zoomTo");
    step.on(items());
    if (fX.span() > 0.0)
        step.with("from", fX.a).with("to", fX.b);
    if (fY.span() > 0.0)
        step.with("lower", fY.a).with("upper", fY.b);
    return step;
}
