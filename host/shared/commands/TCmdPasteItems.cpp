#include "commands/TCmdPasteItems.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TItemFragment.h"
#include "canvas/TPage.h"
#include "commands/ItemsStep.h"
#include "history/THistoryCommand.h"

#include <algorithm>

TCmdPasteItems::TCmdPasteItems(const QByteArray &fragment, TPage *page)
    : TCommand(tr("Paste"))
    , fPage(page)
{
    if (!page)
        return;
    for (TCanvasItem *item : TItemFragment::load(fragment)) {
        fItems.append(item);
        const auto coversIt = [item](const TCanvasItem *other) { return other->rect() == item->rect(); };
        const QList<TCanvasItem *> &there = page->items();
        QRectF rect = item->rect();
        while (std::any_of(there.begin(), there.end(), coversIt)) {
            rect.translate(cStep, cStep);
            item->setLayoutPolicy(TCanvasItem::cOwnRect, false);
            item->setRect(rect);
        }
    }
}

TCmdPasteItems::~TCmdPasteItems()
{
    if (isDone())
        return;
    for (ICanvasItem *item : qAsConst(fItems))
        delete canvasItem(item);
}

void TCmdPasteItems::doCmd()
{
    for (ICanvasItem *item : qAsConst(fItems))
        fPage->insertItem(canvasItem(item));
}

void TCmdPasteItems::undoCmd()
{
    for (int i = fItems.size() - 1; i >= 0; --i)
        fPage->takeItem(canvasItem(fItems.at(i)));
}

void TCmdPasteItems::doHistoryCommand()
{
    for (ICanvasItem *item : qAsConst(fItems))
        appendHistoryCommand(new THistoryCommand(description(), canvasItem(item), QString()), canvasItem(item));
}

void TCmdPasteItems::completeScriptStep(TScriptStep &step) const
{
    if (const auto *document = qobject_cast<const TDocument *>(fPage->parent()))
        step = ItemsStep::insertion(fItems, *document, document->pages().indexOf(fPage));
}
