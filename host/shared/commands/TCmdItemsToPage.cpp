#include "commands/TCmdItemsToPage.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "history/THistoryCommand.h"

TCmdItemsToPage::TCmdItemsToPage(const TCanvasItemList &items, TPage *page, const QVector<QRectF> &rects)
    : TCommand(tr("Move to Page"))
    , fPage(page)
{
    for (int i = 0; page && i < items.size(); ++i) {
        TCanvasItem *item = canvasItem(items.at(i));
        if (item && item->canvas() && item->canvas() != page && !item->isLocked() && !rects.value(i).isEmpty())
            fMoves.append({item, rects.at(i), item->canvas(), item->rect(), item->layoutPolicy(), -1});
    }
}

void TCmdItemsToPage::doCmd()
{
    for (TMove &move : fMoves) {
        move.place = move.from->items().indexOf(move.item);
        fPage->insertItem(move.item);
        move.item->setLayoutPolicy(TCanvasItem::cOwnRect, false);
        move.item->setRect(move.rect);
    }
}

void TCmdItemsToPage::undoCmd()
{
    for (int i = fMoves.size() - 1; i >= 0; --i) {
        const TMove &move = fMoves.at(i);
        move.from->insertItem(move.item, move.place);
        move.item->setLayoutPolicy(move.policy, false);
        move.item->setRect(move.oldRect);
    }
}

void TCmdItemsToPage::doHistoryCommand()
{
    for (const TMove &move : qAsConst(fMoves))
        appendHistoryCommand(new THistoryCommand(description(), move.item, QString()), move.item);
}

TScriptStep TCmdItemsToPage::scriptStep() const
{
    TCanvasItemList items;
    QVariantList rects;
    for (const TMove &move : fMoves) {
        items.append(move.item);
        rects.append(TScriptStep::rect(move.rect));
    }
    const auto *document = qobject_cast<TDocument *>(fPage->parent());
    return TScriptStep("moveItemsToPage")
        .on(items)
        .with("page", document ? document->pages().indexOf(fPage) : -1)
        .with("rects", rects);
}
