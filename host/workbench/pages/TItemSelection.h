#pragma once

#include "canvas/TCanvasItemList.h"

#include <QObject>
#include <QPointer>

class TCanvasItem;
class TPage;

/// The selected items of the page that a view shows. The one selected last is the active one. The items keep it, and
/// documents store it.
class TItemSelection : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// From now on the selection of that page.
    void setPage(TPage *page);
    /// Selects an item alone; `extends` turns its selection over and leaves the others. Null selects none.
    void select(TCanvasItem *item, bool extends = false);
    void selectAll();
    bool contains(const TCanvasItem *item) const;
    /// In the order of the page, the active one first.
    TCanvasItemList items() const;
    TCanvasItem *active() const;

signals:
    void changed();

private:
    void activate(TCanvasItem *item);

    QPointer<TPage> fPage;
};
