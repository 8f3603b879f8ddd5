#include "TItemSelection.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TPage.h"

void TItemSelection::setPage(TPage *page)
{
    if (fPage)
        fPage->disconnect(this);
    fPage = page;
    if (page) {
        const auto told = [this] { emit changed(); };
        connect(page, &TPage::itemAdded, this, told);
        connect(page, &TPage::itemRemoved, this, told);
    }
    emit changed();
}

void TItemSelection::activate(TCanvasItem *item)
{
    for (TCanvasItem *other : fPage->items())
        other->setActive(other == item);
}

void TItemSelection::select(TCanvasItem *item, bool extends)
{
    if (!fPage || (item && !fPage->items().contains(item)))
        return;
    if (!extends) {
        for (TCanvasItem *other : fPage->items())
            other->setSelected(other == item);
        activate(item);
    } else if (item) {
        const bool selected = !contains(item);
        item->setSelected(selected);
        const TCanvasItemList rest = items();
        activate(selected ? item : rest.isEmpty() ? nullptr : canvasItem(rest.last()));
    }
    emit changed();
}

void TItemSelection::selectAll()
{
    if (!fPage || fPage->items().isEmpty())
        return;
    for (TCanvasItem *item : fPage->items())
        item->setSelected(true);
    if (!active())
        activate(fPage->items().last());
    emit changed();
}

bool TItemSelection::contains(const TCanvasItem *item) const
{
    return item && fPage && fPage->items().contains(const_cast<TCanvasItem *>(item)) &&
           (item->isSelectedForEdit() || item->isActive());
}

TCanvasItemList TItemSelection::items() const
{
    TCanvasItemList selected;
    if (!fPage)
        return selected;
    for (TCanvasItem *item : fPage->items()) {
        if (item->isActive())
            selected.prepend(item);
        else if (item->isSelectedForEdit())
            selected.append(item);
    }
    return selected;
}

TCanvasItem *TItemSelection::active() const
{
    if (!fPage)
        return nullptr;
    for (TCanvasItem *item : fPage->items()) {
        if (item->isActive())
            return item;
    }
    return nullptr;
}
