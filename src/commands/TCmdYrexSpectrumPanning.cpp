#include "TCmdYrexSpectrumPanning.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "commands/TCmdZoomSpectra.h"
#include "contexts/TSpectrumItemCtx.h"
#include "history/THistoryCommand.h"

#include <cmath>

TCmdYrexSpectrumPanning::TCmdYrexSpectrumPanning(int kind, const TCanvasItemList &items, bool mergeable)
    : TYrexSpectrumCommand(kind == cPan ? tr("Panning") : QString(), items)
    , fKind(kind)
    , fMergeable(mergeable)
    , fViews(TCanvasItemsCommand::items().size())
    , fNewViews(TCanvasItemsCommand::items().size())
    , fPushed(TCanvasItemsCommand::items().size(), false)
{
    setMergeableFlag(fMergeable);
}

void TCmdYrexSpectrumPanning::addDelta(double dx, double dy)
{
    if (std::isfinite(dx))
        fDeltaX += dx;
    if (std::isfinite(dy))
        fDeltaY += dy;
    fNewViews.fill(TViewHistoryEntry());
}

bool TCmdYrexSpectrumPanning::hasMoved() const
{
    return fKind == cPan && (fDeltaX != 0.0 || fDeltaY != 0.0);
}

TScriptStep TCmdYrexSpectrumPanning::scriptStep() const
{
    // a pan is told once it is known where it led
    return fKind == cPan ? TScriptStep("zoomEach") : TScriptStep("rememberView").on(items());
}

void TCmdYrexSpectrumPanning::completeScriptStep(TScriptStep &step) const
{
    if (fKind == cPan)
        step = TCmdZoomSpectra::stepTo(items(), fDeltaX != 0.0, fDeltaY != 0.0);
}

bool TCmdYrexSpectrumPanning::isApplicable(TCanvasYrexSpectrum *item) const
{
    return item->activeYrexPlot();
}

void TCmdYrexSpectrumPanning::doItem(TCanvasYrexSpectrum *item, int index)
{
    TViewHistoryEntry view;
    item->captureView(view);
    fViews[index] = view;
    fPushed[index] = item->pushView(description(), fMergeable);
    if (!fNewViews.at(index).isEmpty()) {
        item->restoreView(fNewViews.at(index));
    } else if (fKind == cPan) { // fits the height where the plot keeps doing that
        TSpectrumItemCtx(item, item->activeYrexPlot()).pan(fDeltaX, fDeltaY);
        item->captureView(fNewViews[index]);
    }
    item->update();
}

void TCmdYrexSpectrumPanning::undoItem(TCanvasYrexSpectrum *item, int index)
{
    if (fPushed.at(index))
        item->popView();
    item->restoreView(fViews.at(index)); // moving back would leave a rounding error
    item->update();
}

THistoryCommand *TCmdYrexSpectrumPanning::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    entry->setViewOnly(true);
    entry->addParam(tr("Horizontal"), fDeltaX, QString());
    entry->addParam(tr("Vertical"), fDeltaY, QString());
    return entry;
}
