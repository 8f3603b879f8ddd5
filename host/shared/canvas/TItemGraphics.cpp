#include "canvas/TItemGraphics.h"

#include "canvas/QtCanvasItem.h"

#include <QPainter>
#include <cmath>

namespace {

constexpr int cMaxSide = 8192; // device pixels; a closer look is drawn directly

} // namespace

TItemGraphics::TItemGraphics(QtCanvasItem *item)
    : fItem(item)
{
}

void TItemGraphics::place(const QRectF &rect)
{
    if (rect.size() != fSize) {
        prepareGeometryChange();
        fSize = rect.size();
        redraw();
    }
    setPos(rect.topLeft());
}

void TItemGraphics::redraw()
{
    fPixels = QPixmap();
    update();
}

void TItemGraphics::refreshHighlight()
{
    fHighlight = QPixmap();
    update();
}

QPixmap TItemGraphics::render(const QTransform &device, double ratio, const QSize &size, const TDraw &draw) const
{
    QPixmap pixels(size);
    pixels.fill(Qt::transparent);
    pixels.setDevicePixelRatio(ratio);
    QPainter painter(&pixels);
    // the painter of a pixmap already multiplies by the ratio
    painter.setTransform(device * QTransform::fromScale(1.0 / ratio, 1.0 / ratio));
    draw(painter);
    return pixels;
}

void TItemGraphics::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    const QTransform device = painter->deviceTransform();
    const double ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
    const QRect pixels = device.mapRect(boundingRect()).toAlignedRect();
    if (device.type() > QTransform::TxScale || pixels.width() > cMaxSide || pixels.height() > cMaxSide) {
        fItem->paint(*painter);
        return;
    }
    // scrolling by whole pixels keeps the kept ones good
    const QTransform local = device * QTransform::fromTranslate(-pixels.left(), -pixels.top());
    const bool isSame = !fPixels.isNull() && fPixels.size() == pixels.size() && qFuzzyCompare(fRatio, ratio) &&
                        std::abs(local.m11() - fDevice.m11()) < 1e-9 && std::abs(local.dx() - fDevice.dx()) < 0.01 &&
                        std::abs(local.dy() - fDevice.dy()) < 0.01;
    if (!isSame) {
        fPixels = render(local, ratio, pixels.size(), [this](QPainter &to) { fItem->paint(to); });
        fHighlight = QPixmap();
        fDevice = local;
        fRatio = ratio;
        ++fDrawCount;
    }
    const bool isHighlighted = fItem->hasHighlight();
    if (isHighlighted && fHighlight.isNull())
        fHighlight = render(fDevice, ratio, pixels.size(), [this](QPainter &to) { fItem->paintHighlight(to); });
    painter->save();
    painter->setWorldTransform(QTransform());
    const QPointF origin = painter->deviceTransform().inverted().map(QPointF(pixels.topLeft()));
    painter->drawPixmap(origin, fPixels);
    if (isHighlighted)
        painter->drawPixmap(origin, fHighlight);
    painter->restore();
}
