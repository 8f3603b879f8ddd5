#include "commands/TCmdZoomSpectra.h"

#include "canvas/TCanvasSpectrum.h"
#include "contexts/TSpectrumItemCtx.h"
#include "history/THistoryCommand.h"

TCmdZoomSpectra::TCmdZoomSpectra(const TCanvasItemList &items, const QRectF &rect, int flag)
    : TViewCommand(flag & cFullView ? tr("Full View") : tr("Zoom"), items)
    , fRect(rect.normalized())
    , fFullView(flag & cFullView)
{
    setMergeableFlag(true);
}

void TCmdZoomSpectra::changeView(TCanvasSpectrum &item, TBasePlot &activePlot)
{
    TSpectrumItemCtx context(&item, &activePlot);
    if (fFullView)
        context.fullZoomOut();
    else
        context.zoom(fRect);
}

void TCmdZoomSpectra::describe(THistoryCommand &entry) const
{
    if (fFullView)
        return;
    if (fRect.width() > 0.0)
        entry.addParam("Horizontal", QVariantList({fRect.left(), fRect.right()}), QString());
    if (fRect.height() > 0.0)
        entry.addParam("Vertical", QVariantList({fRect.top(), fRect.bottom()}), QString());
}
