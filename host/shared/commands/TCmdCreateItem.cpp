#include "commands/TCmdCreateItem.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "history/THistoryCommand.h"

TCmdCreateItem::TCmdCreateItem(int, const TCanvasItemList &items, TDocument *document, TPage *page,
                               const QVariantMap &info, int flag)
    : TCommand(tr("Create Item"))
    , fItems(items)
    , fDocument(document)
    , fPage(page)
    , fInfo(info)
    , fLaidOut(flag & 1)
{
    for (ICanvasItem *item : qAsConst(fItems))
        canvasItem(item)->provenance() = info;
}

TCmdCreateItem::~TCmdCreateItem()
{
    if (isDone())
        return;
    for (ICanvasItem *item : qAsConst(fItems))
        delete canvasItem(item);
    delete fNewPage;
}

TPage *TCmdCreateItem::targetPage(TPage *page)
{
    if (page && (!fDocument || fDocument->pages().contains(page)))
        return page;
    if (!fNewPage) { // else it is done again, and the page made then is the one
        TPage *current = fDocument->currentPage();
        if (current && current->items().isEmpty())
            return current;
        fNewPage = new TPage;
    }
    fDocument->insertPage(fNewPage, fDocument->pages().size());
    return fNewPage;
}

void TCmdCreateItem::doCmd()
{
    TPage *page = fPage;
    if (!page && !fItems.isEmpty())
        page = canvasItem(fItems.first())->canvas();
    fPage = targetPage(page);
    for (ICanvasItem *entry : qAsConst(fItems)) {
        TCanvasItem *item = canvasItem(entry);
        if (item->rect().isEmpty() || !fLaidOut)
            item->setRect(fPage->offeredRect(item));
        fPage->insertItem(item);
    }
}

void TCmdCreateItem::undoCmd()
{
    for (int i = fItems.size() - 1; i >= 0; --i)
        fPage->takeItem(canvasItem(fItems.at(i)));
    if (fNewPage)
        fDocument->takePage(fNewPage);
}

void TCmdCreateItem::doHistoryCommand()
{
    for (ICanvasItem *entry : qAsConst(fItems)) {
        TCanvasItem *item = canvasItem(entry);
        auto *history = new THistoryCommand(description(), item, QString());
        for (auto it = fInfo.constBegin(); it != fInfo.constEnd(); ++it)
            history->addParam(it.key(), it.value(), QString());
        appendHistoryCommand(history, item);
    }
}
