#include "commands/TCmdDeleteItems.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TPage.h"
#include "history/THistoryCommand.h"

TCmdDeleteItems::TCmdDeleteItems(const TCanvasItemList &items)
    : TCommand(tr("Delete Items"))
{
    for (ICanvasItem *entry : items) {
        TCanvasItem *item = canvasItem(entry);
        if (item && item->canvas() && !item->isLocked())
            fTaken.append({item, item->canvas(), -1});
    }
}

TCmdDeleteItems::~TCmdDeleteItems()
{
    if (!isDone())
        return;
    for (const TTaken &taken : qAsConst(fTaken))
        delete taken.item;
}

void TCmdDeleteItems::doCmd()
{
    for (TTaken &taken : fTaken) {
        taken.place = taken.page->items().indexOf(taken.item);
        taken.page->takeItem(taken.item);
    }
}

void TCmdDeleteItems::undoCmd()
{
    for (int i = fTaken.size() - 1; i >= 0; --i)
        fTaken.at(i).page->insertItem(fTaken.at(i).item, fTaken.at(i).place);
}

void TCmdDeleteItems::doHistoryCommand()
{
    for (const TTaken &taken : qAsConst(fTaken))
        appendHistoryCommand(new THistoryCommand(description(), taken.item, QString()), taken.item);
}

TScriptStep TCmdDeleteItems::scriptStep() const
{
    TCanvasItemList items;
    for (const TTaken &taken : fTaken)
        items.append(taken.item);
    return TScriptStep("deleteItems").on(items);
}
