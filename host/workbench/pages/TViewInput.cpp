#include "TViewInput.h"

#include "TItemSelection.h"
#include "canvas/TCanvasItem.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/TBasePlot.h"
#include "plot/TPlotReadout.h"
#include "ui/TBaseHotAreasHandler.h"
#include "ui/TPluginMouseModeHandler.h"

#include <QKeyEvent>

TViewInput::TViewInput(IPlotView &view, TItemSelection &selection)
    : fView(view)
    , fSelection(selection)
    , fItemHand(selection)
    , fKeyPointer(view)
{
    fPlotHand.setView(&fView);
    fItemHand.setView(&fView);
    connect(&selection, &TItemSelection::changed, this, [this] { fPlotHand.setItems(fSelection.items()); });
}

void TViewInput::setModes(TPluginMouseModeHandler *modes)
{
    fModes = modes;
    if (modes)
        connect(modes, &TPluginMouseModeHandler::modeChanged, this,
                [this] { fKeyPointer.modeChanged(mode(), fSelection.active()); });
}

TMMAct *TViewInput::mode() const
{
    return fModes ? fModes->current() : nullptr;
}

QList<TBaseHotAreasHandler *> TViewInput::hotAreas() const
{
    return fModes ? fModes->hotAreas() : QList<TBaseHotAreasHandler *>();
}

void TViewInput::setPage(TPage *page)
{
    cancelGesture();
    leaveView();
    fItemHand.setPage(page);
}

void TViewInput::leaveView()
{
    for (TBaseHotAreasHandler *handler : hotAreas()) {
        if (!handler->isDragging())
            handler->leaveView();
    }
}

void TViewInput::contentChanged()
{
    for (TBaseHotAreasHandler *handler : hotAreas())
        handler->contentChanged();
}

bool TViewInput::wantsKey(const QKeyEvent &event) const
{
    if (fModes && fModes->current() && fModes->current()->wantsKey(event))
        return true;
    for (const TBaseHotAreasHandler *handler : hotAreas()) {
        if (handler->wantsKey(event))
            return true;
    }
    return false;
}

bool TViewInput::handToAreas(QEvent *event, const TMouseSpot &spot) const
{
    for (TBaseHotAreasHandler *handler : hotAreas()) {
        if (handToAct(*handler, event, spot))
            return true;
    }
    return false;
}

TBaseHotAreasHandler *TViewInput::areasAt(const TMouseSpot &spot) const
{
    if (fItemHand.isArranging() || fItemHand.isOnHandle(spot))
        return nullptr;
    for (TBaseHotAreasHandler *handler : hotAreas()) {
        if (handler->isDragging() || (handler->answers(spot) && handler->takesMouse(spot.area)))
            return handler;
    }
    return nullptr;
}

TMouseSpot TViewInput::keySpot() const
{
    TMouseSpot spot;
    for (const TBaseHotAreasHandler *handler : hotAreas()) {
        if (handler->markSpot(spot))
            return spot;
    }
    if (fKeyPointer.isOn())
        return fView.spotAt(fKeyPointer.place());
    if (const TCanvasItem *item = fSelection.active())
        return fView.spotAt(fView.itemToView(*item).map(QRectF(QPointF(), item->rect().size()).center()));
    return spot;
}

/// The pointer that keys move goes when the mouse is used.
bool TViewInput::handKeys(QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        return fKeyPointer.keyPress(*static_cast<QKeyEvent *>(event), mode(), fSelection.active());
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
        fKeyPointer.mouseUsed(*static_cast<QMouseEvent *>(event));
        return false;
    default:
        return false;
    }
}

bool TViewInput::handle(QEvent *event, const TMouseSpot &spot)
{
    if (fFilter && fFilter(event))
        return true;
    if (handKeys(event))
        return true;
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
        return escape();
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    // space pans in every mode
    if (fPlotHand.isPanning() && handToAct(fPlotHand, event, spot))
        return true;
    const bool isItems = fItemHand.isArranging() || fItemHand.isOnHandle(spot);
    if (!isKey && !isItems && handToAreas(event, spot))
        return true;
    if (mode() && fModes->event(event, spot)) {
        fKeyPointer.follow(mode());
        if (event->type() == QEvent::MouseMove && spot.plot && spot.inCurves)
            fView.showReadout(spot.plot->readout(spot.itemPos)); // the hand on the plot does not see this move
        return true;
    }
    fKeyPointer.follow(mode()); // a cross follows without taking the event
    if (isKey && handToAreas(event, spot))
        return true;
    if (!isKey && isItems)
        return handToAct(fItemHand, event, spot);
    if (handToAct(fPlotHand, event, spot))
        return true;
    return handToAct(fItemHand, event, spot);
}

void TViewInput::pointerLeft()
{
    if (fModes && fModes->current())
        fModes->current()->pointerLeft();
}

void TViewInput::paint(QPainter &painter)
{
    fItemHand.paint(painter);
    fPlotHand.paint(painter);
    if (fModes && fModes->current())
        fModes->current()->paint(painter);
    fKeyPointer.paint(painter, mode());
    for (TBaseHotAreasHandler *handler : hotAreas())
        handler->paint(painter);
}

QCursor TViewInput::cursor(const TMouseSpot &spot) const
{
    if (fPlotHand.isPanning())
        return fPlotHand.cursor(spot);
    if (const TBaseHotAreasHandler *handler = areasAt(spot))
        return handler->cursor(spot);
    if (fModes && fModes->current() && spot.inCurves)
        return fModes->current()->cursor(spot);
    const bool isItems = fItemHand.isArranging() || fItemHand.isOnHandle(spot) || spot.place == placeOnRim;
    return isItems ? fItemHand.cursor(spot) : fPlotHand.cursor(spot);
}

QString TViewInput::hint() const
{
    for (const TBaseHotAreasHandler *handler : hotAreas()) {
        QString hint = handler->hint();
        if (!hint.isEmpty())
            return hint;
    }
    if (fKeyPointer.isShown(mode()))
        return mode()->hint() + ' ' + tr("Arrows move the pointer, Enter clicks, Shift+Enter holds.");
    if (mode())
        return mode()->hint();
    return fItemHand.isArranging() ? fItemHand.hint() : fPlotHand.hint();
}

bool TViewInput::cancelGesture()
{
    fKeyPointer.drop();
    return giveUpDrag();
}

bool TViewInput::giveUpDrag()
{
    bool isDone = false;
    for (TBaseHotAreasHandler *handler : hotAreas())
        isDone = handler->cancelGesture() || isDone;
    isDone = fPlotHand.cancelGesture() || isDone;
    return fItemHand.cancelGesture() || isDone;
}

bool TViewInput::selectAllSpectra()
{
    TCanvasItem *item = fSelection.active();
    IStackedItemCtx *stack = item ? item->stackedContext() : nullptr;
    if (!stack || stack->ids(false, true).size() == stack->count())
        return false;
    QVector<int> all;
    for (int i = 0; i < stack->count(); ++i)
        all.append(i);
    stack->setSelected(all);
    item->update();
    fView.stackChanged(item);
    return true;
}

bool TViewInput::escape()
{
    if (cancelGesture())
        return true;
    if (fModes && fModes->escape())
        return true;
    if (fItemHand.isArranging()) {
        fItemHand.setArranging(false);
        fView.updateOverlay();
        return true;
    }
    for (TBaseHotAreasHandler *handler : hotAreas()) {
        if (handler->escape())
            return true;
    }
    if (selectAllSpectra())
        return true;
    if (fSelection.items().isEmpty())
        return false;
    fSelection.select(nullptr);
    return true;
}
