#pragma once

#include "canvas/TPage.h"

#include <QPointer>
#include <memory>

class QGraphicsItem;
class QPainter;
class TItemGraphics;

/// The side of an item that faces the canvas. Lengths are canvas units of 0.1 mm.
class QtCanvasItem
{
public:
    QtCanvasItem();
    virtual ~QtCanvasItem();
    QtCanvasItem(const QtCanvasItem &) = delete;
    QtCanvasItem &operator=(const QtCanvasItem &) = delete;

    /// The page on which the item stands, or null. Pages own their items; an item without a page belongs to a command,
    /// a script or a caller.
    TPage *canvas() const { return fCanvas; }
    void setCanvas(TPage *page) { fCanvas = page; }
    /// Makes the item show on its page, where the page has a scene.
    virtual void setup();
    virtual void hide();
    bool isShown() const { return fShown; }
    /// What stands for the item in the page's scene; null while it is not shown or its page has no scene.
    QGraphicsItem *graphics() const;
    /// Brings the scene in line with the item's rectangle and lets it be drawn anew.
    void refreshGraphics();
    /// The item was moved or resized: only another size makes it be drawn anew.
    void placeGraphics();
    /// Where the item stands on its page.
    virtual QRectF canvasRect() const = 0;
    /// Draws the item with its top left corner at the origin.
    virtual void paint(QPainter &painter) = 0;
    /// The same for a picture, print or thumbnail: what the mouse finds on the screen stays as it was.
    virtual void paintPicture(QPainter &painter) { paint(painter); }

    /// Whether anything is highlighted.
    virtual bool hasHighlight() const { return false; }
    /// Draws what is highlighted over the item as it was drawn last.
    virtual void paintHighlight(QPainter &) {}
    /// Something else is highlighted than before; the item keeps its pixels.
    void refreshHighlight();

private:
    QPointer<TPage> fCanvas; // an item may outlive the page that it was meant for
    std::unique_ptr<TItemGraphics> fGraphics;
    bool fShown = false;
};
