#pragma once

#include <QGraphicsItem>
#include <QPixmap>

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
    /// Takes over the item's place, and draws it anew when it is next seen.
    void follow(const QRectF &rect);
    QRectF boundingRect() const override { return QRectF(QPointF(0, 0), fSize); }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;
    /// How often the item itself was drawn; the other draws came from the kept pixels.
    int drawCount() const { return fDrawCount; }

private:
    void render(const QTransform &device, double ratio, const QRect &pixels);

    QtCanvasItem *fItem;
    QSizeF fSize;
    QPixmap fPixels;
    QTransform fDevice; // for which the pixels are good, without the place on the device
    double fRatio = 0.0;
    int fDrawCount = 0;
};
