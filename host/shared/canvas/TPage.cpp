#include "canvas/TPage.h"

#include "canvas/ItemPlaces.h"
#include "canvas/TCanvasItem.h"
#include "utils/CommonUtils.h"

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QPainter>

namespace {
constexpr double cLeastOffered = 0.25; // of the area's sides: less is no room for a plot
}

TPage::TPage(QObject *parent)
    : QObject(parent)
    , fId(Utils::Common::createUuid())
{
}

TPage::~TPage()
{
    const QList<TCanvasItem *> items = fItems;
    fItems.clear();
    for (TCanvasItem *item : items) {
        item->hide(); // while there is a scene to leave
        item->setCanvas(nullptr);
        delete item;
    }
}

void TPage::setSize(const QSizeF &size)
{
    fSize = size;
    if (fScene)
        fScene->setSceneRect(QRectF(QPointF(0, 0), fSize));
    emit pageChanged();
}

void TPage::setTitle(const QString &title)
{
    fTitle = title;
    emit pageChanged();
}

QGraphicsScene *TPage::scene()
{
    if (!fScene) {
        fScene = std::make_unique<QGraphicsScene>();
        fScene->setItemIndexMethod(QGraphicsScene::NoIndex); // a few large items that move
        fScene->setSceneRect(QRectF(QPointF(0, 0), fSize));
        for (TCanvasItem *item : qAsConst(fItems))
            item->setup();
        orderScene();
    }
    return fScene.get();
}

void TPage::orderScene()
{
    for (int i = 0; i < fItems.size(); ++i) {
        if (QGraphicsItem *graphics = fItems.at(i)->graphics())
            graphics->setZValue(i);
    }
}

void TPage::itemChanged(TCanvasItem *item)
{
    item->refreshGraphics();
    emit changed(item);
}

void TPage::insertItem(TCanvasItem *item, int index)
{
    if (!item || fItems.contains(item))
        return;
    if (item->canvas() && item->canvas() != this)
        item->canvas()->takeItem(item); // one owner only
    fItems.insert(index < 0 ? fItems.size() : qMin(index, fItems.size()), item);
    item->setCanvas(this);
    item->setup();
    orderScene();
    emit itemAdded(item);
}

void TPage::moveItem(TCanvasItem *item, int index)
{
    const int place = fItems.indexOf(item);
    if (place < 0)
        return;
    fItems.move(place, qBound(0, index, fItems.size() - 1));
    orderScene();
}

void TPage::takeItem(TCanvasItem *item)
{
    if (!fItems.removeOne(item))
        return;
    item->hide();
    item->setCanvas(nullptr);
    emit itemRemoved(item);
}

QRectF TPage::contentRect() const
{
    return QRectF(QPointF(0, 0), fSize).marginsRemoved(fMargins);
}

QRectF TPage::offeredRect(const TCanvasItem *item) const
{
    QVector<QRectF> taken;
    for (const TCanvasItem *other : fItems) {
        if (other != item)
            taken.append(other->rect());
    }
    const QRectF whole = contentRect();
    const QRectF free = largestFreeRect(whole, taken);
    const bool isRoomy =
        free.width() >= cLeastOffered * whole.width() && free.height() >= cLeastOffered * whole.height();
    return isRoomy ? free : whole;
}

void TPage::render(QPaintDevice *device) const
{
    QPainter painter(device);
    painter.scale(device->width() / fSize.width(), device->height() / fSize.height());
    paintItems(painter);
}

void TPage::paintItems(QPainter &painter) const
{
    for (TCanvasItem *item : fItems) {
        painter.save();
        painter.translate(item->rect().topLeft());
        item->paintPicture(painter);
        painter.restore();
    }
    drawExpansionTies(painter, *this);
}
