#include "TItemController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "TViewInput.h"
#include "WDocumentView.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "commands/TCmdDeleteItems.h"
#include "commands/TCmdItemOrder.h"
#include "commands/TCmdMoveItem.h"

#include <cmath>

namespace {

constexpr double cTileGap = 40.0; // canvas units

} // namespace

TItemController::TItemController(TActionTable &actions, TDocumentController &documents, QObject *parent)
    : QObject(parent)
    , fDocuments(documents)
{
    const auto needsItem = [this] { return items().isEmpty() ? tr("Needs a selected item.") : QString(); };
    const auto needsAny = [this] {
        return fDocuments.page() && !fDocuments.page()->items().isEmpty() ? QString() : tr("The page is empty.");
    };
    actions.on(
        "delete", [this] { fDocuments.document()->history().push(new TCmdDeleteItems(items())); }, needsItem);
    const auto addOrder = [&](const QString &name, TCmdItemOrder::TTarget target) {
        actions.on(
            name, [this, target] { fDocuments.document()->history().push(new TCmdItemOrder(items(), target)); },
            needsItem);
    };
    addOrder("bringToFront", TCmdItemOrder::cToFront);
    addOrder("sendToBack", TCmdItemOrder::cToBack);
    actions.on(
        "selectAll", [this] { fDocuments.view()->selection().selectAll(); }, needsAny);
    actions.on(
        "arrangeItems",
        [this] {
            TItemHand &hand = fDocuments.view()->input().itemHand();
            hand.setArranging(!hand.isArranging());
            fDocuments.view()->updateOverlay();
        },
        {}, [this] { return fDocuments.view() && fDocuments.view()->input().itemHand().isArranging(); });
    const auto add = [&](const QString &name, const TPlace &placing) {
        actions.on(
            name, [this, placing] { place(placing); }, needsItem);
    };
    using R = const QRectF &;
    add("alignLeft", [](R item, R frame) { return item.translated(frame.left() - item.left(), 0); });
    add("alignRight", [](R item, R frame) { return item.translated(frame.right() - item.right(), 0); });
    add("alignTop", [](R item, R frame) { return item.translated(0, frame.top() - item.top()); });
    add("alignBottom", [](R item, R frame) { return item.translated(0, frame.bottom() - item.bottom()); });
    add("alignCentreX", [](R item, R frame) { return item.translated(frame.center().x() - item.center().x(), 0); });
    add("alignCentreY", [](R item, R frame) { return item.translated(0, frame.center().y() - item.center().y()); });
    actions.on(
        "fillPage",
        [this] {
            const TCanvasItemList selected = items();
            const QRectF whole = fDocuments.page()->contentRect();
            fDocuments.document()->history().push(new TCmdMoveItem(selected, QVector<QRectF>(selected.size(), whole)));
        },
        needsItem);
    actions.on(
        "tile", [this] { tile(); }, needsAny);
}

TCanvasItemList TItemController::items() const
{
    return fDocuments.view() ? fDocuments.view()->selection().items() : TCanvasItemList();
}

void TItemController::place(const TPlace &place)
{
    const TCanvasItemList selected = items();
    QRectF frame;
    for (ICanvasItem *item : selected)
        frame |= canvasItem(item)->rect();
    const TPage *page = fDocuments.page();
    if (selected.size() == 1)
        frame = QRectF(QPointF(0, 0), page->size()).marginsRemoved(page->margins());
    QVector<QRectF> rects;
    for (ICanvasItem *item : selected)
        rects.append(place(canvasItem(item)->rect(), frame));
    fDocuments.document()->history().push(new TCmdMoveItem(selected, rects));
}

void TItemController::tile()
{
    const TPage *page = fDocuments.page();
    TCanvasItemList all;
    for (TCanvasItem *item : page->items())
        all.append(item);
    const QRectF room = QRectF(QPointF(0, 0), page->size()).marginsRemoved(page->margins());
    const int columns = int(std::ceil(std::sqrt(double(all.size()))));
    const int rows = (all.size() + columns - 1) / columns;
    const double width = (room.width() - (columns - 1) * cTileGap) / columns;
    const double height = (room.height() - (rows - 1) * cTileGap) / rows;
    QVector<QRectF> rects;
    for (int i = 0; i < all.size(); ++i) {
        const int column = i % columns;
        const int row = i / columns;
        rects.append(
            QRectF(room.left() + column * (width + cTileGap), room.top() + row * (height + cTileGap), width, height));
    }
    fDocuments.document()->history().push(new TCmdMoveItem(all, rects));
}
