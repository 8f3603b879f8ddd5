#include "commands/TCmdItemOrder.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TPage.h"
#include "history/THistoryCommand.h"

#include <algorithm>

namespace {

/// In the order in which each is moved to the end, so that they come to stand there as they stood.
TCanvasItemList inTurn(TCanvasItemList items, bool fromBack)
{
    const auto place = [](ICanvasItem *item) {
        const TPage *page = canvasItem(item)->canvas();
        return page ? page->items().indexOf(canvasItem(item)) : -1;
    };
    std::stable_sort(items.begin(), items.end(), [&](ICanvasItem *l, ICanvasItem *r) {
        return fromBack ? place(l) < place(r) : place(l) > place(r);
    });
    return items;
}

} // namespace

TCmdItemOrder::TCmdItemOrder(const TCanvasItemList &items, TTarget target)
    : TCanvasItemsCommand(target == cToFront ? tr("Bring to Front") : tr("Send to Back"),
                          inTurn(items, target == cToFront))
    , fTarget(target)
    , fPlaces(items.size(), -1)
{
}

bool TCmdItemOrder::cmdItemApplicable(TCanvasItem *item) const
{
    return item->canvas() != nullptr;
}

void TCmdItemOrder::doCmd()
{
    fChanged = false;
    TCanvasItemsCommand::doCmd();
    setVoidFlag(!fChanged);
}

void TCmdItemOrder::doCmdItem(TCanvasItem *item, int index)
{
    TPage *page = item->canvas();
    fPlaces[index] = page->items().indexOf(item);
    const int target = fTarget == cToFront ? page->items().size() - 1 : 0;
    fChanged = fChanged || target != fPlaces.at(index);
    page->moveItem(item, target);
}

void TCmdItemOrder::undoCmdItem(TCanvasItem *item, int index)
{
    item->canvas()->moveItem(item, fPlaces.at(index));
}

THistoryCommand *TCmdItemOrder::itemHistoryCommand(TCanvasItem *item)
{
    return new THistoryCommand(description(), item, QString());
}

TScriptStep TCmdItemOrder::scriptStep() const
{
    return TScriptStep(fTarget == cToFront ? "bringToFront" : "sendToBack").on(items());
}
