#include "TViewInput.h"

#include "TItemSelection.h"
#include "ui/TPluginMouseModeHandler.h"

#include <QKeyEvent>

TViewInput::TViewInput(IPlotView &view, TItemSelection &selection)
    : fView(view)
    , fSelection(selection)
    , fItemHand(selection)
{
    fPlotHand.setView(&fView);
    fItemHand.setView(&fView);
    connect(&selection, &TItemSelection::changed, this, [this] { fPlotHand.setItems(fSelection.items()); });
}

void TViewInput::setPage(TPage *page)
{
    fPlotHand.cancelGesture();
    fItemHand.cancelGesture();
    fItemHand.setPage(page);
}

bool TViewInput::handle(QEvent *event, const TMouseSpot &spot)
{
    if (fFilter && fFilter(event))
        return true;
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
        return escape();
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    // space pans in every mode
    if (fPlotHand.isPanning() && handToAct(fPlotHand, event, spot))
        return true;
    if (fModes && fModes->current() && fModes->event(event, spot))
        return true;
    if (!isKey && (fItemHand.isArranging() || fItemHand.isOnHandle(spot)))
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
}

QCursor TViewInput::cursor(const TMouseSpot &spot) const
{
    if (fPlotHand.isPanning())
        return fPlotHand.cursor(spot);
    if (fModes && fModes->current() && spot.inCurves)
        return fModes->current()->cursor(spot);
    const bool isItems = fItemHand.isArranging() || fItemHand.isOnHandle(spot) || spot.place == placeOnRim;
    return isItems ? fItemHand.cursor(spot) : fPlotHand.cursor(spot);
}

QString TViewInput::hint() const
{
    if (fModes && fModes->current())
        return fModes->current()->hint();
    return fItemHand.isArranging() ? fItemHand.hint() : fPlotHand.hint();
}

bool TViewInput::escape()
{
    if (fPlotHand.cancelGesture() || fItemHand.cancelGesture())
        return true;
    if (fModes && fModes->escape())
        return true;
    if (fItemHand.isArranging()) {
        fItemHand.setArranging(false);
        fView.updateOverlay();
        return true;
    }
    if (fSelection.items().isEmpty())
        return false;
    fSelection.select(nullptr);
    return true;
}
