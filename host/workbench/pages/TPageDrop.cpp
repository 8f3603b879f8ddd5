#include "TPageDrop.h"

#include "TDocumentController.h"
#include "WDocumentView.h"
#include "canvas/ItemPlaces.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TItemFragment.h"
#include "canvas/TPage.h"
#include "commands/TCmdCreateItem.h"
#include "commands/TCmdItemsToPage.h"
#include "consts/Consts.h"
#include "ui/TDragAndDropHandler.h"

#include <QCoreApplication>
#include <QMimeData>

namespace {

constexpr double cLargeShare = 0.6; // of the page: what is larger gets a corner, so that it hides nothing

} // namespace

TPageDrop::TPageDrop(TDocumentController &documents, const QMimeData &mime, bool copies)
    : fDocuments(documents)
    , fCopies(copies)
{
    const TPage *page = documents.page();
    if (!page)
        return;
    for (ICanvasItem *entry : PageDrag::items(mime.data(Consts::Common::cPageNavigatorDragId), *documents.document())) {
        const TCanvasItem *item = canvasItem(entry);
        if (copies || (item->canvas() != page && !item->isLocked()))
            fItems.append(entry);
    }
}

QString TPageDrop::label() const
{
    if (isEmpty())
        return QString();
    return fCopies ? QCoreApplication::translate("TPageDrop", "Copy to page")
                   : QCoreApplication::translate("TPageDrop", "Move to page");
}

QRectF TPageDrop::rectFor(const QRectF &own, const QPointF &place) const
{
    const QRectF room = fDocuments.page()->contentRect();
    if (fDocuments.page()->items().isEmpty())
        return fDocuments.page()->offeredRect(nullptr);
    if (own.width() > cLargeShare * room.width() || own.height() > cLargeShare * room.height())
        return emptiestCorner(*fDocuments.page());
    QRectF rect = own;
    rect.moveCenter(place);
    rect.moveLeft(qBound(room.left(), rect.left(), room.right() - rect.width()));
    rect.moveTop(qBound(room.top(), rect.top(), room.bottom() - rect.height()));
    return rect;
}

bool TPageDrop::run(const QPointF &place) const
{
    if (isEmpty())
        return false;
    TDocument *document = fDocuments.document();
    TPage *page = fDocuments.page();
    QVector<QRectF> rects;
    for (ICanvasItem *item : fItems)
        rects.append(rectFor(canvasItem(item)->rect(), place));
    TCanvasItemList dropped = fItems;
    TCommand *command = nullptr;
    if (fCopies) {
        dropped.clear();
        for (TCanvasItem *copy : TItemFragment::load(TItemFragment::store(fItems))) {
            copy->setLayoutPolicy(TCanvasItem::cOwnRect, false);
            copy->setRect(rects.value(dropped.size()));
            dropped.append(copy);
        }
        constexpr int cLaidOut = 1;
        command = new TCmdCreateItem(TCmdCreateItem::cOther, dropped, document, page, {}, cLaidOut);
        command->setDescription(QCoreApplication::translate("TPageDrop", "Copy to Page"));
    } else {
        command = new TCmdItemsToPage(fItems, page, rects);
    }
    if (dropped.isEmpty() || !document->history().push(command))
        return false;
    fDocuments.view()->selection().select(canvasItem(dropped.first()));
    return true;
}
