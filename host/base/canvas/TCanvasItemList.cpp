#include "canvas/TCanvasItemList.h"

#include <algorithm>

template <typename TTest>
ICanvasItem *TCanvasItemList::firstWith(const TTest &test) const
{
    const auto found = std::find_if(begin(), end(), [&test](const ICanvasItem *item) { return item && test(item); });
    return found == end() ? nullptr : *found;
}

ICanvasItem *TCanvasItemList::isRttiActive(int rtti) const
{
    ICanvasItem *active = firstWith([](const ICanvasItem *item) { return item->isActive(); });
    return active && active->rtti() == rtti ? active : nullptr;
}

int TCanvasItemList::hasRtti(int rtti) const
{
    return getByRtti(rtti).size();
}

ICanvasItem *TCanvasItemList::firstRtti(int rtti) const
{
    return firstWith([rtti](const ICanvasItem *item) { return item->rtti() == rtti; });
}

TCanvasItemList TCanvasItemList::getByRtti(int rtti) const
{
    TCanvasItemList items;
    for (ICanvasItem *item : *this) {
        if (item && item->rtti() == rtti)
            items.append(item);
    }
    return items;
}

ICanvasItem *TCanvasItemList::getItem(const QUuid &id) const
{
    return firstWith([&id](const ICanvasItem *item) { return item->uniqueId() == id; });
}

ICanvasItem *TCanvasItemList::firstLinkId(const QUuid &id) const
{
    return firstWith([&id](const ICanvasItem *item) { return item->answersTo(id); });
}
