#include "commands/TCmdChangePlots.h"

#include "canvas/TCanvasSpectrum.h"
#include "contexts/IStackedItemCtx.h"
#include "history/THistoryCommand.h"

TCmdChangePlots::TCmdChangePlots(const QString &description, const TCanvasItemList &items, const TChange &change)
    : TCanvasItemsCommand(description, items)
    , fChange(change)
    , fBefore(items.size())
{
}

bool TCmdChangePlots::cmdItemApplicable(TCanvasItem *item) const
{
    const auto *spectrum = dynamic_cast<const TCanvasSpectrum *>(item);
    return spectrum && spectrum->activePlot();
}

void TCmdChangePlots::doCmd()
{
    fChanged = false;
    TCanvasItemsCommand::doCmd();
    setVoidFlag(!fChanged);
}

void TCmdChangePlots::doCmdItem(TCanvasItem *item, int index)
{
    TBefore &before = fBefore[index];
    before.plots.capture(item);
    if (const IStackedItemCtx *stack = item->stackedContext())
        before.stack.capture(*stack);
    auto *spectrum = static_cast<TCanvasSpectrum *>(item);
    fChange(*spectrum, *spectrum->activePlot());
    TBefore after;
    after.plots.capture(item);
    if (const IStackedItemCtx *stack = item->stackedContext())
        after.stack.capture(*stack);
    fChanged = fChanged || !(after.plots == before.plots) || !(after.stack == before.stack);
}

void TCmdChangePlots::undoCmdItem(TCanvasItem *item, int index)
{
    const TBefore &before = fBefore.at(index);
    if (IStackedItemCtx *stack = item->stackedContext())
        before.stack.restore(*stack);
    before.plots.restore(item); // behind the stack, whose colours and scales are the plot's
}

THistoryCommand *TCmdChangePlots::itemHistoryCommand(TCanvasItem *item)
{
    return new THistoryCommand(description(), item, QString());
}
