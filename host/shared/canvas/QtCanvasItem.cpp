#include "canvas/QtCanvasItem.h"

#include "canvas/TItemGraphics.h"

#include <QGraphicsScene>

QtCanvasItem::QtCanvasItem() = default;

QtCanvasItem::~QtCanvasItem() = default;

void QtCanvasItem::setup()
{
    fShown = true;
    if (!fCanvas || !fCanvas->hasScene() || fGraphics)
        return;
    fGraphics = std::make_unique<TItemGraphics>(this);
    fCanvas->scene()->addItem(fGraphics.get());
    refreshGraphics();
}

void QtCanvasItem::hide()
{
    fShown = false;
    fGraphics.reset(); // leaves its scene by itself
}

QGraphicsItem *QtCanvasItem::graphics() const
{
    return fGraphics.get();
}

void QtCanvasItem::refreshGraphics()
{
    if (!fGraphics)
        return;
    fGraphics->place(canvasRect());
    fGraphics->redraw();
}

void QtCanvasItem::refreshHighlight()
{
    if (fGraphics)
        fGraphics->refreshHighlight();
}

void QtCanvasItem::placeGraphics()
{
    if (fGraphics)
        fGraphics->place(canvasRect());
}
