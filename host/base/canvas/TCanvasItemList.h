#pragma once

#include "canvas/ICanvasItem.h"

#include <QVector>

/// Items of a document, not owned.
class TCanvasItemList : public QVector<ICanvasItem *>
{
public:
    using QVector<ICanvasItem *>::QVector;

    /// The active item when its type number is `rtti`, else null.
    ICanvasItem *isRttiActive(int rtti) const;
    /// The number of items of that type.
    int hasRtti(int rtti) const;
    /// The first item of that type, or null.
    ICanvasItem *firstRtti(int rtti) const;
    /// The items of that type, in list order.
    TCanvasItemList getByRtti(int rtti) const;
    /// The item with that id, or null.
    ICanvasItem *getItem(const QUuid &id) const;
    /// The first item that has that id or was copied from it, or null.
    ICanvasItem *firstLinkId(const QUuid &id) const;

private:
    template <typename TTest>
    ICanvasItem *firstWith(const TTest &test) const;
};
