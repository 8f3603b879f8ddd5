#include "commands/TCmdCreateItem.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "commands/ItemsStep.h"
#include "history/THistoryCommand.h"

#include <QFileInfo>

TCmdCreateItem::TCmdCreateItem(int, const TCanvasItemList &items, TDocument *document, TPage *page,
                               const QVariantMap &info, int flag)
    : TCommand(tr("Create Item"))
    , fItems(items)
    , fDocument(document)
    , fPage(page)
    , fInfo(info)
    , fFlags(flag)
{
    if (info.isEmpty())
        return; // copies keep what they know
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
        if (!page && !(fFlags & cOnNewPage) && current && current->items().isEmpty())
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
        if (item->rect().isEmpty() || !(fFlags & cLaidOut))
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

void TCmdCreateItem::setFile(const QString &path, const QString &format)
{
    fFile = path;
    fFormat = format;
}

void TCmdCreateItem::setStackedFiles(const QStringList &paths, const QString &format)
{
    fStackedFiles = paths;
    fFormat = format;
}

bool TCmdCreateItem::isUsualPage(const TDocument &document) const
{
    const QList<TPage *> &pages = document.pages();
    if (!fNewPage)
        return fPage == pages.last() && fPage->items().size() == fItems.size();
    const TPage *last = pages.value(pages.size() - 2);
    return !last || !last->items().isEmpty();
}

void TCmdCreateItem::completeScriptStep(TScriptStep &step) const
{
    const auto *document = qobject_cast<const TDocument *>(fPage->parent());
    if (!document)
        return;
    const int place = document->pages().indexOf(fPage);
    const bool isUsual = isUsualPage(*document);
    if (!fFile.isEmpty()) {
        QVariantList arguments{TScriptStep::path(fFile)};
        if (!fFormat.isEmpty() || !isUsual)
            arguments.append(fFormat);
        if (!isUsual)
            arguments.append(place);
        step = TScriptStep::function("openFile", arguments);
        step.setMadeName(QFileInfo(fFile).completeBaseName());
    } else if (!fStackedFiles.isEmpty()) {
        QVariantList files;
        for (const QString &path : fStackedFiles)
            files.append(TScriptStep::path(path));
        step = TScriptStep("openAsStack").with("files", files);
        if (!fFormat.isEmpty())
            step.with("format", fFormat);
        if (!isUsual)
            step.with("page", place);
        step.setMadeName("stack");
    } else {
        step = ItemsStep::insertion(fItems, *document, fNewPage ? ItemsStep::cNewPage : place);
    }
}
