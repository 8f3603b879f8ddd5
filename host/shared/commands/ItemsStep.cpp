#include "commands/ItemsStep.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TItemFragment.h"
#include "stream/TDataStream.h"

#include <algorithm>

namespace {

QByteArray storedBytes(const TCanvasItem &item)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    item.store(stream);
    return bytes;
}

/// What the items were made from, when that stands in the document; empty when any was not.
TCanvasItemList sourcesOf(const TCanvasItemList &items, const TDocument &document)
{
    TCanvasItemList sources;
    for (ICanvasItem *entry : items) {
        const QList<QUuid> ids = canvasItem(entry)->links(TCanvasItem::cCopyRole);
        TCanvasItem *source = ids.isEmpty() ? nullptr : document.item(ids.last());
        if (!source || items.contains(source))
            return {};
        sources.append(source);
    }
    return sources;
}

bool areCopies(const TCanvasItemList &items, const TCanvasItemList &sources, const QVector<QRectF> &rects)
{
    const QList<TCanvasItem *> copies = ItemsStep::copies(sources, rects);
    bool isEqual = copies.size() == items.size();
    for (int i = 0; isEqual && i < copies.size(); ++i) {
        copies.at(i)->setUniqueId(items.at(i)->uniqueId());
        isEqual = storedBytes(*copies.at(i)) == storedBytes(*canvasItem(items.at(i)));
    }
    qDeleteAll(copies);
    return isEqual;
}

void tellPage(TScriptStep &step, int page)
{
    if (page != ItemsStep::cNewPage)
        step.with("page", page);
}

TScriptStep copying(const TCanvasItemList &items, const TDocument &document, int page)
{
    const TCanvasItemList sources = sourcesOf(items, document);
    if (sources.isEmpty())
        return TScriptStep();
    QVector<QRectF> rects;
    QVariantList told;
    bool areMoved = false;
    for (int i = 0; i < items.size(); ++i) {
        rects.append(canvasItem(items.at(i))->rect());
        told.append(TScriptStep::rect(rects.last()));
        areMoved |= rects.last() != canvasItem(sources.at(i))->rect();
    }
    if (!areCopies(items, sources, areMoved ? rects : QVector<QRectF>()))
        return TScriptStep();
    TScriptStep step("copyItems");
    step.on(sources);
    tellPage(step, page);
    return areMoved ? step.with("rects", told) : step;
}

TScriptStep inserting(const TCanvasItemList &items, const TDocument &document, int page)
{
    TScriptStep step("insertItems");
    tellPage(step, page);
    QVariantList linked;
    bool isAny = false;
    for (ICanvasItem *entry : items) {
        for (const QUuid &id : canvasItem(entry)->linkedIds()) {
            TCanvasItem *other = document.item(id);
            const bool isTold = other && !items.contains(other);
            linked.append(isTold ? TScriptStep::item(other) : QVariant());
            isAny |= isTold;
        }
    }
    if (isAny)
        step.with("links", linked);
    return step.with("data", TItemFragment::store(items));
}

} // namespace

TScriptStep ItemsStep::insertion(const TCanvasItemList &items, const TDocument &document, int page)
{
    TScriptStep step = copying(items, document, page);
    if (step.isEmpty())
        step = inserting(items, document, page);
    if (!items.isEmpty())
        step.setMadeName(canvasItem(items.first())->title(false));
    return step;
}

QList<TCanvasItem *> ItemsStep::copies(const TCanvasItemList &items, const QVector<QRectF> &rects)
{
    const QList<TCanvasItem *> copies = TItemFragment::load(TItemFragment::store(items));
    for (int i = 0; i < copies.size() && i < rects.size(); ++i) {
        copies.at(i)->setLayoutPolicy(TCanvasItem::cOwnRect, false);
        copies.at(i)->setRect(rects.at(i));
    }
    return copies;
}

QList<TCanvasItem *> ItemsStep::inserted(const QByteArray &data, const QVector<ICanvasItem *> &linked)
{
    const QList<TCanvasItem *> items = TItemFragment::load(data, TItemFragment::cOriginals);
    int link = 0;
    for (TCanvasItem *item : items) {
        QMap<QUuid, QUuid> others;
        for (const QUuid &id : item->linkedIds()) {
            if (const ICanvasItem *other = linked.value(link++))
                others.insert(id, other->uniqueId());
        }
        item->replaceLinks(others);
    }
    return items;
}
