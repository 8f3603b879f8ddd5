#include "canvas/TPage.h"

#include "canvas/TCanvasItem.h"
#include "utils/CommonUtils.h"

#include <QPainter>

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
        item->setCanvas(nullptr);
        delete item;
    }
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
    emit itemAdded(item);
}

void TPage::takeItem(TCanvasItem *item)
{
    if (!fItems.removeOne(item))
        return;
    item->hide();
    item->setCanvas(nullptr);
    emit itemRemoved(item);
}

QRectF TPage::offeredRect(const TCanvasItem *) const
{
    return QRectF(QPointF(0, 0), fSize).marginsRemoved(fMargins);
}

void TPage::render(QPaintDevice *device) const
{
    QPainter painter(device);
    painter.scale(device->width() / fSize.width(), device->height() / fSize.height());
    for (TCanvasItem *item : fItems) {
        painter.save();
        painter.translate(item->rect().topLeft());
        item->paint(painter);
        painter.restore();
    }
}
