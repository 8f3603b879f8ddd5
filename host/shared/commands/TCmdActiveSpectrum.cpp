#include "commands/TCmdActiveSpectrum.h"

#include "canvas/TCanvasItem.h"
#include "contexts/IStackedItemCtx.h"
#include "history/THistoryCommand.h"

TCmdActiveSpectrum::TCmdActiveSpectrum(const TCanvasItemList &items, int index)
    : TCanvasItemsCommand(tr("Active Spectrum"), items)
    , fIndex(index)
    , fBefore(items.size(), -1)
{
    setMergeableFlag(true);
}

bool TCmdActiveSpectrum::cmdItemApplicable(TCanvasItem *item) const
{
    const IStackedItemCtx *stack = item->stackedContext();
    return stack && fIndex >= 0 && fIndex < stack->count();
}

void TCmdActiveSpectrum::doCmd()
{
    fChanged = false;
    TCanvasItemsCommand::doCmd();
    setVoidFlag(!fChanged);
}

void TCmdActiveSpectrum::doCmdItem(TCanvasItem *item, int index)
{
    IStackedItemCtx *stack = item->stackedContext();
    fBefore[index] = stack->activeIndex();
    stack->makeCurrent(fIndex);
    fChanged = fChanged || stack->activeIndex() != fBefore.at(index);
}

void TCmdActiveSpectrum::undoCmdItem(TCanvasItem *item, int index)
{
    item->stackedContext()->setActiveIndex(fBefore.at(index));
}

THistoryCommand *TCmdActiveSpectrum::itemHistoryCommand(TCanvasItem *item)
{
    auto *entry = new THistoryCommand(description(), item, QString());
    entry->setViewOnly(true);
    entry->addParam(tr("Spectrum"), item->stackedContext()->title(fIndex), QString());
    return entry;
}
