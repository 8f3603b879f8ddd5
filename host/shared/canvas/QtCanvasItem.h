#pragma once

#include "canvas/TPage.h"

#include <QPointer>

class QPainter;

/// The side of an item that faces the canvas. Lengths are canvas units of 0.1 mm.
class QtCanvasItem
{
public:
    virtual ~QtCanvasItem() = default;

    /// The page on which the item stands, or null. Pages own their items; an item without a page belongs to a command,
    /// a script or a caller.
    TPage *canvas() const { return fCanvas; }
    void setCanvas(TPage *page) { fCanvas = page; }
    /// Makes the item show on its page, where the page has a scene.
    virtual void setup() { fShown = true; }
    virtual void hide() { fShown = false; }
    bool isShown() const { return fShown; }
    /// Draws the item with its top left corner at the origin.
    virtual void paint(QPainter &painter) = 0;

private:
    QPointer<TPage> fCanvas; // an item may outlive the page that it was meant for
    bool fShown = false;
};
