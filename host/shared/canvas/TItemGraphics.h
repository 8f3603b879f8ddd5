#pragma once

#include <QGraphicsItem>
#include <QPixmap>
#include <functional>

class QtCanvasItem;

/// What stands for an item in the scene of its page. It keeps the pixels of the last draw, so that what lies over the
/// item (boxes, crosshairs, highlights) moves without drawing curves anew.
class TItemGraphics : public QGraphicsItem
{
public:
    enum { Type = UserType + 1 };

    /// `item` owns this object.
    explicit TItemGraphics(QtCanvasItem *item);

    int type() const override { return Type; }
    QtCanvasItem *canvasItem() const { return fItem; }
    /// Takes over the item's place.
    void place(const QRectF &rect);
    /// Draws the item anew when it is next seen.
    void redraw();
    QRectF boundingRect() const override { return QRectF(QPointF(0, 0), fSize); }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
    /// Something else is highlighted, which is drawn over the kept pixels.
    void refreshHighlight();
    /// How often the item itself was drawn; the other draws came from the kept pixels.
    int drawCount() const { return fDrawCount; }

private:
    using TDraw = std::function<void(QPainter &)>;
    QPixmap render(const QTransform &device, double ratio, const QSize &size, const TDraw &draw) const;

    QtCanvasItem *fItem;
    QSizeF fSize;
    QPixmap fPixels;
    QPixmap fHighlight; // what is drawn over them
    QTransform fDevice; // for which the pixels are good, without the place on the device
    double fRatio = 0.0;
    int fDrawCount = 0;
};
