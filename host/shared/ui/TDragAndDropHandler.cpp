#include "ui/TDragAndDropHandler.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "consts/Consts.h"
#include "stream/TDataStream.h"
#include "ui/IPlotView.h"
#include "ui/TMouseSpot.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QPainter>
#include <QPalette>

namespace {

constexpr double cHighlightAlpha = 0.25;
constexpr double cTextInset = 12.0; // pixels
constexpr int cIdSize = 16;         // bytes of an id

QVector<QUuid> readIds(TDataStream &stream)
{
    QVector<QUuid> ids;
    const int count = stream.readCount(cIdSize);
    for (int i = 0; i < count && stream.isGood(); ++i) {
        QUuid id;
        stream >> id;
        ids.append(id);
    }
    return ids;
}

} // namespace

QByteArray PageDrag::store(const TDocument &document, const QList<TPage *> &pages, const TCanvasItemList &items)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint64(QCoreApplication::applicationPid()) << document.id() << qint32(pages.size());
    for (const TPage *page : pages)
        stream << page->id();
    stream << qint32(items.size());
    for (const ICanvasItem *item : items)
        stream << item->uniqueId();
    return bytes;
}

TCanvasItemList PageDrag::items(const QByteArray &bytes, const TDocument &document)
{
    TDataStream stream(bytes);
    qint64 process = 0;
    QUuid owner;
    stream >> process >> owner;
    const QVector<QUuid> pages = readIds(stream);
    const QVector<QUuid> single = readIds(stream);
    TCanvasItemList items;
    if (!stream.isGood() || process != QCoreApplication::applicationPid() || owner != document.id())
        return items;
    for (const TPage *page : document.pages()) {
        for (TCanvasItem *item : page->items()) {
            if (pages.contains(page->id()) || single.contains(item->uniqueId()))
                items.append(item);
        }
    }
    return items;
}

TLooseItemsMime::TLooseItemsMime(const TCanvasItemList &items)
    : fItems(items)
{
    setData(Consts::Common::cPageNavigatorDragId, QByteArray());
}

void TDragAndDropHandler::setView(IPlotView *view, TDocument *document)
{
    fView = view;
    fDocument = document;
}

bool TDragAndDropHandler::isItemDrag(const QMimeData *mime)
{
    return mime && mime->hasFormat(Consts::Common::cPageNavigatorDragId);
}

void TDragAndDropHandler::dragEnterEvent(QDragEnterEvent *event)
{
    if (isItemDrag(event->mimeData()))
        event->acceptProposedAction();
}

void TDragAndDropHandler::dragLeaveEvent(QDragLeaveEvent *)
{
    reset();
}

void TDragAndDropHandler::reset()
{
    fPointed = TSecurePtr<TCanvasItem>();
    fRefusal.clear();
    setHighlights({});
}

TCanvasItem *TDragAndDropHandler::itemAt(const QPointF &viewPos) const
{
    TCanvasItem *item = fView ? fView->spotAt(viewPos).item : nullptr;
    return item && item->rtti() == fRtti ? item : nullptr;
}

void TDragAndDropHandler::setPointedItem(TCanvasItem *item)
{
    fPointed = TSecurePtr<TCanvasItem>(item);
}

TCanvasItemList TDragAndDropHandler::draggedItems(const QMimeData *mime) const
{
    if (const auto *loose = qobject_cast<const TLooseItemsMime *>(mime))
        return loose->items();
    return fDocument && isItemDrag(mime)
               ? PageDrag::items(mime->data(Consts::Common::cPageNavigatorDragId), *fDocument).getByRtti(fRtti)
               : TCanvasItemList();
}

void TDragAndDropHandler::setHighlights(const QVector<QRectF> &rects)
{
    if (fHighlights == rects)
        return;
    fHighlights = rects;
    if (fView)
        fView->updateOverlay();
}

void TDragAndDropHandler::refuse(const QString &reason)
{
    fRefusal = reason;
    setHighlights({});
}

void TDragAndDropHandler::paint(QPainter &painter, const QPalette &palette) const
{
    if (fHighlights.isEmpty())
        return;
    QColor color = palette.color(QPalette::Highlight);
    const QColor frame = color;
    color.setAlphaF(cHighlightAlpha);
    QFont font = painter.font();
    font.setBold(true);
    painter.save();
    painter.setFont(font);
    for (const QRectF &rect : fHighlights) {
        painter.setPen(frame);
        painter.setBrush(color);
        painter.drawRect(rect);
        // the label at the mouse would mostly cover the middle
        painter.drawText(rect.adjusted(cTextInset, 0, -cTextInset, 0), Qt::AlignLeft | Qt::AlignVCenter,
                         highlightText());
    }
    painter.restore();
}
