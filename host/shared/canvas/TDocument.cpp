#include "canvas/TDocument.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TCanvasItemList.h"
#include "canvas/TPage.h"
#include "canvas/TStoredHistoryEntry.h"
#include "history/THistoryCommand.h"
#include "utils/CommonUtils.h"

TDocument::TDocument(QObject *parent)
    : QObject(parent)
    , fId(Utils::Common::createUuid())
    , fFormat(1)
    , fWriter("Kelmora")
{
    fHistory.setChangedHandler([this] {
        const bool wasModified = fModified;
        fModified = fHistory.isModified();
        if (fModified != wasModified)
            emit modifiedChanged(fModified);
        emit historyChanged();
    });
    fHistory.setReplacedHandler([this] { emit stepReplaced(); });
    fHistory.setItemIds([this] {
        QList<QUuid> ids;
        for (const TPage *page : qAsConst(fPages)) {
            for (const TCanvasItem *item : page->items())
                ids.append(item->uniqueId());
        }
        return ids;
    });
}

TDocument::~TDocument()
{
    fHistory.setChangedHandler({});
    fHistory.setReplacedHandler({});
    fHistory.stack()->clear();
    qDeleteAll(fPages);
}

bool TDocument::isModified() const
{
    return fHistory.isModified();
}

void TDocument::watch(TPage *page)
{
    page->setParent(this);
    connect(page, &TPage::itemAdded, this, &TDocument::itemAdded);
    connect(page, &TPage::itemRemoved, this, &TDocument::itemRemoved);
    connect(page, &TPage::changed, this, [this](TCanvasItem *item) { tellLinked(item, false); });
    connect(page, &TPage::itemAdded, this, [this](TCanvasItem *item) { tellLinked(item, false); });
    connect(page, &TPage::itemRemoved, this, [this](TCanvasItem *item) { tellLinked(item, true); });
}

void TDocument::tellLinked(TCanvasItem *item, bool leaves)
{
    for (const TPage *page : qAsConst(fPages)) {
        for (TCanvasItem *other : page->items()) {
            if (other == item || !other->isLinkedTo(item->uniqueId()))
                continue;
            if (leaves)
                other->linkedItemLeaves(item);
            else
                other->linkedItemChanged(item);
        }
    }
}

TPage *TDocument::appendPage()
{
    auto *page = new TPage;
    insertPage(page, fPages.size());
    return page;
}

void TDocument::insertPage(TPage *page, int index)
{
    fPages.insert(qBound(0, index, fPages.size()), page);
    watch(page);
    if (!fCurrentPage)
        fCurrentPage = page;
    for (TCanvasItem *item : page->items())
        tellLinked(item, false);
    emit pagesChanged();
}

void TDocument::takePage(TPage *page)
{
    const int place = fPages.indexOf(page);
    if (place < 0)
        return;
    for (TCanvasItem *item : page->items())
        tellLinked(item, true);
    fPages.removeAt(place);
    page->disconnect(this);
    page->setParent(nullptr);
    if (fCurrentPage == page)
        fCurrentPage = fPages.isEmpty() ? nullptr : fPages.at(qMin(place, fPages.size() - 1));
    emit pagesChanged();
}

void TDocument::movePage(TPage *page, int index)
{
    const int from = fPages.indexOf(page);
    if (from < 0)
        return;
    fPages.move(from, qBound(0, index, fPages.size() - 1));
    emit pagesChanged();
}

void TDocument::setCurrentPage(TPage *page)
{
    if (page == fCurrentPage)
        return;
    fCurrentPage = page;
    emit currentPageChanged(page);
}

TPage *TDocument::currentPage() const
{
    return fCurrentPage;
}

TCanvasItemList TDocument::items() const
{
    TCanvasItemList items;
    for (const TPage *page : fPages) {
        for (TCanvasItem *item : page->items())
            items.append(item);
    }
    return items;
}

TCanvasItem *TDocument::item(const QUuid &id) const
{
    return canvasItem(items().getItem(id));
}

QList<TStoredHistoryEntry> TDocument::historyEntries() const
{
    QList<TStoredHistoryEntry> entries = fStoredHistory;
    for (const THistoryCommand *live : fHistory.entries())
        entries.append(
            {live->time(), live->description(), live->text(), live->itemId(), live->isUndone(), live->params()});
    return entries;
}
