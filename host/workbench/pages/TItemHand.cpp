#include "TItemHand.h"

#include "TItemSelection.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TPage.h"
#include "commands/TCmdMoveItem.h"
#include "commands/TCommandHistory.h"
#include "plot/TBasePlotter.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace {

constexpr double cHandleReach = 5.0; // pixels
constexpr double cDragStart = 3.0;   // pixels
constexpr double cSmallest = 150.0;  // canvas units, a side of an item
const QColor cFrame(0x2F, 0x7D, 0xE1);
const QColor cGuide(0xD6, 0x33, 0x6C);

// handles in turn: top left, top, top right, right, bottom right, bottom, bottom left, left
bool movesLeft(int handle)
{
    return handle == 0 || handle == 6 || handle == 7;
}

bool movesRight(int handle)
{
    return handle >= 2 && handle <= 4;
}

bool movesTop(int handle)
{
    return handle >= 0 && handle <= 2;
}

bool movesBottom(int handle)
{
    return handle >= 4 && handle <= 6;
}

} // namespace

TItemHand::TItemHand(TItemSelection &selection)
    : TMMAct(QUuid())
    , fSelection(selection)
{
}

QVector<QPointF> TItemHand::handles(const QRectF &rect)
{
    const QPointF middle = rect.center();
    return {
        rect.topLeft(),     QPointF(middle.x(), rect.top()),    rect.topRight(),   QPointF(rect.right(), middle.y()),
        rect.bottomRight(), QPointF(middle.x(), rect.bottom()), rect.bottomLeft(), QPointF(rect.left(), middle.y())};
}

/// A single item that fills its page would wear a frame all the time; it gets it when the mouse comes to its rim.
bool TItemHand::showsFrame(const TCanvasItem *item) const
{
    return fArranging || fGesture != cIdle || (fPage && fPage->items().size() > 1) || fHovered == item;
}

int TItemHand::handleAt(const TMouseSpot &spot, TCanvasItem **item) const
{
    for (ICanvasItem *entry : fSelection.items()) {
        TCanvasItem *selected = canvasItem(entry);
        if (selected->isLocked() || !showsFrame(selected) || !view())
            continue;
        const QTransform map = view()->itemToView(*selected);
        const QVector<QPointF> places = handles(QRectF(QPointF(0, 0), selected->rect().size()));
        for (int i = 0; i < places.size(); ++i) {
            const QPointF away = map.map(places.at(i)) - spot.viewPos;
            if (std::abs(away.x()) <= cHandleReach && std::abs(away.y()) <= cHandleReach) {
                if (item)
                    *item = selected;
                return i;
            }
        }
    }
    return -1;
}

QCursor TItemHand::cursor(const TMouseSpot &spot) const
{
    static const Qt::CursorShape cShapes[] = {Qt::SizeFDiagCursor, Qt::SizeVerCursor, Qt::SizeBDiagCursor,
                                              Qt::SizeHorCursor};
    const int handle = fGesture == cResize ? fHandle : handleAt(spot);
    if (handle >= 0)
        return QCursor(cShapes[handle % 4]);
    const bool wouldMove = spot.item && (fArranging || spot.place == placeOnRim);
    return QCursor(fGesture == cMove || wouldMove ? Qt::SizeAllCursor : Qt::ArrowCursor);
}

QString TItemHand::hint() const
{
    return fArranging ? QCoreApplication::translate("TItemHand", "Arrange Items: drag moves items, Escape leaves.")
                      : QString();
}

bool TItemHand::mousePress(QMouseEvent *event, const TMouseSpot &spot)
{
    if (event->button() == Qt::RightButton)
        return cancelGesture();
    if (event->button() != Qt::LeftButton)
        return false;
    TCanvasItem *resized = nullptr;
    fHandle = handleAt(spot, &resized);
    fStart = spot.pagePos;
    fHasMoved = false;
    if (fHandle >= 0) {
        fGesture = cResize;
        fItems = TCanvasItemList{resized};
    } else {
        const bool extends = event->modifiers() & Qt::ControlModifier;
        if (extends || !fSelection.contains(spot.item))
            fSelection.select(spot.item, extends && spot.item);
        if (!spot.item)
            return false;
        fGesture = cMove;
        fItems = fSelection.items();
    }
    fRects.clear();
    for (ICanvasItem *entry : qAsConst(fItems))
        fRects.append(canvasItem(entry)->rect());
    fUnitsPerPixel = fItems.isEmpty() ? 1.0 : 1.0 / view()->itemToView(*canvasItem(fItems.first())).m11();
    return true;
}

QVector<double> TItemHand::snapLines(bool vertical) const
{
    const auto sides = [vertical](const QRectF &rect) {
        return vertical ? QVector<double>{rect.left(), rect.center().x(), rect.right()}
                        : QVector<double>{rect.top(), rect.center().y(), rect.bottom()};
    };
    const QRectF paper(QPointF(0, 0), fPage->size());
    QVector<double> lines = sides(paper) + sides(paper.marginsRemoved(fPage->margins()));
    for (TCanvasItem *item : fPage->items()) {
        if (!fItems.contains(item))
            lines += sides(item->rect());
    }
    return lines;
}

double TItemHand::snapped(const QVector<double> &places, bool vertical)
{
    double best = cSnapPixels * fUnitsPerPixel;
    double shift = 0.0;
    double at = 0.0;
    for (const double line : snapLines(vertical)) {
        for (const double place : places) {
            if (std::abs(line - place) < best) {
                best = std::abs(line - place);
                shift = line - place;
                at = line;
            }
        }
    }
    if (best < cSnapPixels * fUnitsPerPixel)
        fGuides.append({vertical, at});
    return shift;
}

void TItemHand::moveItems(const QPointF &pagePos, bool snaps)
{
    QRectF whole;
    for (const QRectF &rect : qAsConst(fRects))
        whole |= rect;
    QPointF shift = pagePos - fStart;
    whole.translate(shift);
    if (snaps) {
        shift.rx() += snapped({whole.left(), whole.center().x(), whole.right()}, true);
        shift.ry() += snapped({whole.top(), whole.center().y(), whole.bottom()}, false);
    }
    for (int i = 0; i < fItems.size(); ++i) {
        if (!canvasItem(fItems.at(i))->isLocked())
            canvasItem(fItems.at(i))->setRect(fRects.at(i).translated(shift));
    }
}

void TItemHand::resizeItem(const QPointF &pagePos, bool keepsShape, bool snaps)
{
    const QRectF old = fRects.first();
    QPointF shift = pagePos - fStart;
    if (snaps && !keepsShape) {
        if (movesLeft(fHandle) || movesRight(fHandle))
            shift.rx() += snapped({(movesLeft(fHandle) ? old.left() : old.right()) + shift.x()}, true);
        if (movesTop(fHandle) || movesBottom(fHandle))
            shift.ry() += snapped({(movesTop(fHandle) ? old.top() : old.bottom()) + shift.y()}, false);
    }
    QRectF rect = old;
    if (movesLeft(fHandle))
        rect.setLeft(qMin(old.left() + shift.x(), old.right() - cSmallest));
    if (movesRight(fHandle))
        rect.setRight(qMax(old.right() + shift.x(), old.left() + cSmallest));
    if (movesTop(fHandle))
        rect.setTop(qMin(old.top() + shift.y(), old.bottom() - cSmallest));
    if (movesBottom(fHandle))
        rect.setBottom(qMax(old.bottom() + shift.y(), old.top() + cSmallest));
    if (keepsShape && fHandle % 2 == 0) { // at a corner
        const double scale = qMax(rect.width() / old.width(), rect.height() / old.height());
        const QSizeF size = old.size() * scale;
        if (movesLeft(fHandle))
            rect.setLeft(rect.right() - size.width());
        else
            rect.setRight(rect.left() + size.width());
        if (movesTop(fHandle))
            rect.setTop(rect.bottom() - size.height());
        else
            rect.setBottom(rect.top() + size.height());
    }
    canvasItem(fItems.first())->setRect(rect);
}

bool TItemHand::mouseMove(QMouseEvent *event, const TMouseSpot &spot)
{
    if (fGesture == cIdle) {
        fHovered = spot.place == placeOnRim || handleAt(spot) >= 0 ? spot.item : nullptr;
        return false;
    }
    const QPointF way = (spot.pagePos - fStart) / fUnitsPerPixel;
    fHasMoved = fHasMoved || std::hypot(way.x(), way.y()) >= cDragStart;
    if (!fHasMoved)
        return true;
    fGuides.clear();
    const bool snaps = !(event->modifiers() & Qt::ControlModifier);
    if (fGesture == cMove)
        moveItems(spot.pagePos, snaps);
    else
        resizeItem(spot.pagePos, event->modifiers() & (Qt::ShiftModifier | Qt::AltModifier), snaps);
    view()->updateOverlay();
    return true;
}

bool TItemHand::mouseRelease(QMouseEvent *event, const TMouseSpot &)
{
    if (event->button() != Qt::LeftButton || fGesture == cIdle)
        return false;
    QVector<QRectF> placed;
    for (int i = 0; i < fItems.size(); ++i) {
        placed.append(canvasItem(fItems.at(i))->rect());
        canvasItem(fItems.at(i))->setRect(fRects.at(i)); // the command does it as one step
    }
    fGesture = cIdle;
    fGuides.clear();
    if (fHasMoved)
        view()->history().push(new TCmdMoveItem(fItems, placed));
    view()->updateOverlay();
    return true;
}

bool TItemHand::cancelGesture()
{
    if (fGesture == cIdle)
        return false;
    for (int i = 0; i < fItems.size(); ++i)
        canvasItem(fItems.at(i))->setRect(fRects.at(i));
    fGesture = cIdle;
    fGuides.clear();
    if (view())
        view()->updateOverlay();
    return true;
}

void TItemHand::paint(QPainter &painter)
{
    painter.save();
    for (ICanvasItem *entry : fSelection.items()) {
        const TCanvasItem *item = canvasItem(entry);
        if (!showsFrame(item))
            continue;
        const QTransform map = view()->itemToView(*item);
        const QRectF rect(QPointF(0, 0), item->rect().size());
        painter.setPen(QPen(cFrame, 1.0));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(map.mapRect(rect));
        painter.setBrush(Qt::white);
        const double side = qBound(6.0, TBasePlotter::cHandlerSize * map.m11(), 10.0);
        for (const QPointF &place : handles(rect)) {
            const QPointF at = map.map(place);
            painter.drawRect(QRectF(at.x() - side / 2, at.y() - side / 2, side, side));
        }
    }
    if (!fItems.isEmpty() && !fGuides.isEmpty()) {
        const TCanvasItem *item = canvasItem(fItems.first());
        QTransform map = view()->itemToView(*item);
        const QPointF corner = item->rect().topLeft();
        painter.setPen(QPen(cGuide, 1.0));
        for (const TGuide &guide : qAsConst(fGuides)) {
            const QPointF from = guide.fIsVertical ? QPointF(guide.fPlace, 0) : QPointF(0, guide.fPlace);
            const QPointF to = guide.fIsVertical ? QPointF(guide.fPlace, fPage->size().height())
                                                 : QPointF(fPage->size().width(), guide.fPlace);
            painter.drawLine(map.map(from - corner), map.map(to - corner));
        }
    }
    painter.restore();
}
