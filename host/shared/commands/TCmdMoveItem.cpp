#include "commands/TCmdMoveItem.h"

#include "canvas/TCanvasItem.h"
#include "history/THistoryCommand.h"

#include <algorithm>
#include <cmath>

namespace {

bool isPlace(const QRectF &rect)
{
    constexpr double cFarthest = 1e6;                                              // canvas units, 100 m
    const auto isNear = [](double value) { return std::abs(value) <= cFarthest; }; // false for NaN
    return !rect.isEmpty() && isNear(rect.left()) && isNear(rect.top()) && isNear(rect.right()) &&
           isNear(rect.bottom());
}

bool hasSameSizes(const QVector<QRectF> &rects, const TCanvasItemList &items)
{
    for (int i = 0; i < items.size() && i < rects.size(); ++i) {
        if (items.at(i) && canvasItem(items.at(i))->rect().size() != rects.at(i).size())
            return false;
    }
    return true;
}

} // namespace

TCmdMoveItem::TCmdMoveItem(const TCanvasItemList &items, const QVector<QRectF> &rects)
    : TCanvasItemsCommand(hasSameSizes(rects, items) ? tr("Move Items") : tr("Resize Items"), items)
    , fNew(items.size())
    , fOld(items.size())
{
    setMergeableFlag(true);
    for (int i = 0; i < items.size(); ++i) {
        const TCanvasItem *item = canvasItem(items.at(i));
        if (!item)
            continue;
        fOld[i].rect = item->rect();
        fOld[i].policy = item->layoutPolicy();
        const QRectF rect = rects.value(i);
        if (isPlace(rect) && rect != item->rect() && !item->isLocked())
            fNew[i].rect = rect;
    }
}

bool TCmdMoveItem::isVoid() const
{
    const auto stays = [](const TPlace &place) { return place.rect.isEmpty(); };
    return TCanvasItemsCommand::isVoid() || std::all_of(fNew.begin(), fNew.end(), stays);
}

bool TCmdMoveItem::cmdItemApplicable(TCanvasItem *item) const
{
    return !fNew.at(items().indexOf(item)).rect.isEmpty();
}

void TCmdMoveItem::doCmdItem(TCanvasItem *item, int index)
{
    item->setLayoutPolicy(TCanvasItem::cOwnRect, false);
    item->setRect(fNew.at(index).rect);
}

void TCmdMoveItem::undoCmdItem(TCanvasItem *item, int index)
{
    item->setLayoutPolicy(fOld.at(index).policy, false);
    item->setRect(fOld.at(index).rect);
}

THistoryCommand *TCmdMoveItem::itemHistoryCommand(TCanvasItem *item)
{
    auto *entry = new THistoryCommand(description(), item, QString());
    entry->addParam("Rectangle", item->rect(), QString());
    return entry;
}

TScriptStep TCmdMoveItem::scriptStep() const
{
    QVariantList rects;
    for (int i = 0; i < items().size(); ++i)
        rects.append(TScriptStep::rect(fNew.at(i).rect.isEmpty() ? fOld.at(i).rect : fNew.at(i).rect));
    return TScriptStep("moveItems").on(items()).with("rects", rects);
}
