#include "commands/TCmdPages.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TCanvasItemList.h"
#include "canvas/TDocument.h"
#include "canvas/TItemFragment.h"
#include "canvas/TPage.h"
#include "history/THistoryCommand.h"

TCmdPages::TCmdPages(const QString &description, TDocument *document)
    : TCommand(description)
    , fDocument(document)
{
    fBefore.pages = document->pages();
    fBefore.current = document->currentPage();
    for (TPage *page : document->pages())
        fBefore.states.insert(page, stateOf(*page));
    fAfter = fBefore;
}

TCmdPages::~TCmdPages()
{
    for (TPage *page : isDone() ? fBefore.pages : fAfter.pages) {
        const QList<TPage *> &kept = isDone() ? fAfter.pages : fBefore.pages;
        if (!kept.contains(page))
            delete page;
    }
}

TCmdPages::TPageState TCmdPages::stateOf(const TPage &page)
{
    return {page.title(), page.size(), page.margins()};
}

QVariantList TCmdPages::placesOf(const TDocument &document, const QList<TPage *> &pages)
{
    QVariantList places;
    for (TPage *page : pages) {
        if (document.pages().contains(page))
            places.append(document.pages().indexOf(page));
    }
    return places;
}

TCmdPages *TCmdPages::newPage(TDocument *document, int index)
{
    auto *command = new TCmdPages(tr("New Page"), document);
    auto *page = new TPage;
    const int place = qBound(0, index, document->pages().size());
    if (const TPage *neighbour = document->pages().value(qMax(0, place - 1))) {
        page->setSize(neighbour->size());
        page->setMargins(neighbour->margins());
    }
    command->fAfter.pages.insert(place, page);
    command->fAfter.states.insert(page, stateOf(*page));
    command->fAfter.current = page;
    command->fStep = TScriptStep("newPage").with("at", place);
    return command;
}

TCmdPages *TCmdPages::deletePages(TDocument *document, const QList<TPage *> &pages)
{
    auto *command = new TCmdPages(tr("Delete Page"), document);
    command->fStep = TScriptStep("deletePages").with("pages", placesOf(*document, pages));
    TState &after = command->fAfter;
    const int first = pages.isEmpty() ? -1 : after.pages.indexOf(pages.first());
    for (TPage *page : pages) {
        after.pages.removeAll(page);
        after.states.remove(page);
    }
    if (after.pages.isEmpty()) {
        after = command->fBefore;
        return command;
    }
    if (!after.pages.contains(after.current))
        after.current = after.pages.at(qBound(0, first, after.pages.size() - 1));
    return command;
}

TCmdPages *TCmdPages::duplicatePages(TDocument *document, const QList<TPage *> &pages)
{
    auto *command = new TCmdPages(tr("Duplicate Page"), document);
    command->fStep = TScriptStep("duplicatePages").with("pages", placesOf(*document, pages));
    TState &after = command->fAfter;
    for (TPage *page : pages) {
        if (!document->pages().contains(page))
            continue;
        auto *copy = new TPage;
        copy->setSize(page->size());
        copy->setMargins(page->margins());
        copy->setTitle(page->title());
        TCanvasItemList items;
        for (TCanvasItem *item : page->items())
            items.append(item);
        for (TCanvasItem *item : TItemFragment::load(TItemFragment::store(items)))
            copy->insertItem(item);
        after.pages.insert(after.pages.indexOf(page) + 1, copy);
        after.states.insert(copy, stateOf(*copy));
        after.current = copy;
    }
    return command;
}

TCmdPages *TCmdPages::movePage(TDocument *document, TPage *page, int index)
{
    auto *command = new TCmdPages(tr("Reorder Pages"), document);
    QList<TPage *> &pages = command->fAfter.pages;
    const int before = pages.indexOf(page);
    if (pages.removeOne(page))
        pages.insert(qBound(0, index, pages.size()), page);
    command->fStep = TScriptStep("movePages")
                         .with("pages", placesOf(*document, {page}))
                         .with("before", index > before ? index + 1 : index);
    return command;
}

TCmdPages *TCmdPages::movePages(TDocument *document, const QList<TPage *> &pages, int place)
{
    auto *command = new TCmdPages(tr("Reorder Pages"), document);
    QList<TPage *> before;
    QList<TPage *> moved;
    QList<TPage *> after;
    const QList<TPage *> &present = document->pages();
    for (int i = 0; i < present.size(); ++i)
        (pages.contains(present.at(i)) ? moved : i < place ? before : after).append(present.at(i));
    command->fAfter.pages = before + moved + after;
    command->fStep = TScriptStep("movePages").with("pages", placesOf(*document, pages)).with("before", place);
    return command;
}

TCmdPages *TCmdPages::renamePage(TDocument *document, TPage *page, const QString &title)
{
    auto *command = new TCmdPages(tr("Rename Page"), document);
    if (command->fAfter.states.contains(page))
        command->fAfter.states[page].title = title;
    command->fStep = TScriptStep("setPageTitle").with("page", document->pages().indexOf(page)).with("title", title);
    return command;
}

TCmdPages *TCmdPages::resizePages(TDocument *document, const QList<TPage *> &pages, const QSizeF &size,
                                  const QMarginsF &margins)
{
    auto *command = new TCmdPages(tr("Page Size"), document);
    command->fStep = TScriptStep("setPageSize")
                         .with("pages", placesOf(*document, pages))
                         .with("width", size.width())
                         .with("height", size.height())
                         .with("margins", QVariantMap{{"left", margins.left()},
                                                      {"top", margins.top()},
                                                      {"right", margins.right()},
                                                      {"bottom", margins.bottom()}});
    const QRectF inside = QRectF(QPointF(0, 0), size).marginsRemoved(margins);
    for (TPage *page : pages) {
        if (!command->fAfter.states.contains(page) || inside.isEmpty())
            continue;
        TPageState &state = command->fAfter.states[page];
        state.size = size;
        state.margins = margins;
        for (TCanvasItem *item : page->items()) {
            if (item->layoutPolicy() == TCanvasItem::cFollowsPage)
                command->fOldRects.insert(item, item->rect());
        }
    }
    return command;
}

void TCmdPages::apply(const TState &state)
{
    const QList<TPage *> present = fDocument->pages();
    for (TPage *page : present) {
        if (!state.pages.contains(page))
            fDocument->takePage(page);
    }
    for (int i = 0; i < state.pages.size(); ++i) {
        TPage *page = state.pages.at(i);
        if (!fDocument->pages().contains(page))
            fDocument->insertPage(page, i);
        else if (fDocument->pages().at(i) != page)
            fDocument->movePage(page, i);
        const TPageState wanted = state.states.value(page);
        if (stateOf(*page) == wanted)
            continue;
        page->setTitle(wanted.title);
        page->setSize(wanted.size);
        page->setMargins(wanted.margins);
    }
    fDocument->setCurrentPage(state.current);
}

void TCmdPages::followPages()
{
    for (auto it = fOldRects.constBegin(); it != fOldRects.constEnd(); ++it)
        it.key()->setRect(it.key()->canvas()->contentRect());
}

void TCmdPages::doCmd()
{
    apply(fAfter);
    followPages();
}

void TCmdPages::undoCmd()
{
    apply(fBefore);
    for (auto it = fOldRects.constBegin(); it != fOldRects.constEnd(); ++it)
        it.key()->setRect(it.value());
}

void TCmdPages::doHistoryCommand()
{
    appendHistoryCommand(new THistoryCommand(description(), nullptr, QString()), nullptr);
}
