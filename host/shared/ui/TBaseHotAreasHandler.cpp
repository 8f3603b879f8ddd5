#include "ui/TBaseHotAreasHandler.h"

#include "canvas/TCanvasSpectrum.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>

TBaseHotAreasHandler::TBaseHotAreasHandler()
    : TMMAct(QUuid())
{
}

void TBaseHotAreasHandler::setMode(const QUuid &mode)
{
    cancelGesture();
    fMode = mode;
    leaveView(); // another area may answer now
}

void TBaseHotAreasHandler::follow(const TPlotHotArea &area, TCanvasSpectrum *item)
{
    const auto isSame = [&](const TPlotHotArea &other) {
        return area.type() == other.type() && area.subType() == other.subType() && area.id() == other.id() &&
               area.index() == other.index();
    };
    const bool stays = isSame(fArea) && item == fItem.get();
    const bool wasOn = fArea.isValid();
    fArea = area;
    fItem = TSecurePtr<TCanvasSpectrum>(item);
    if (stays)
        return;
    if (wasOn)
        emit hotAreaFocusOut();
    if (area.isValid() && item)
        emit hotAreaHighlighted(area, item);
    if (view())
        view()->updateOverlay();
}

void TBaseHotAreasHandler::contentChanged()
{
    if (fIsPressed || !fItem || !view() || !takesMouse(fArea) || !fArea.isValid())
        return;
    TMouseSpot spot;
    spot.item = spot.spectrum = fItem.get();
    spot.plot = fItem->activePlot();
    spot.area = fArea;
    if (answers(spot))
        hover(spot);
}

bool TBaseHotAreasHandler::mousePress(QMouseEvent *event, const TMouseSpot &spot)
{
    if (fIsPressed) {
        if (event->button() == Qt::RightButton)
            cancelGesture();
        return true;
    }
    const bool isOurs = spot.spectrum && answers(spot) && takesMouse(spot.area);
    if (!isOurs || event->modifiers() & Qt::AltModifier)
        return false;
    follow(spot.area, spot.spectrum);
    if (event->button() == Qt::RightButton) {
        click(spot, event->modifiers(), Qt::RightButton);
        emit hotAreaMouseBtnReleased(spot.area, spot.spectrum);
        return false; // the menu opens
    }
    if (event->button() != Qt::LeftButton)
        return false;
    fPress = spot;
    fIsPressed = true;
    fWasDragged = false;
    return true;
}

bool TBaseHotAreasHandler::mouseMove(QMouseEvent *event, const TMouseSpot &spot)
{
    if (!fIsPressed) {
        if (event->buttons() != Qt::NoButton) // a drag of someone else
            return false;
        const bool isOurs = spot.spectrum && answers(spot);
        follow(isOurs ? spot.area : TPlotHotArea(), isOurs ? spot.spectrum : nullptr);
        if (!isOurs || !takesMouse(spot.area))
            return false;
        view()->pointAt(nullptr, -1);
        hover(spot);
        return true;
    }
    if (!fItem) { // it went while the button was held
        cancelGesture();
        return true;
    }
    const int away = int((spot.viewPos - fPress.viewPos).manhattanLength());
    if (!fWasDragged && away >= QGuiApplication::styleHints()->startDragDistance() / 2) {
        fWasDragged = true;
        fIsDragging = startDrag(fPress);
    }
    if (fIsDragging) {
        dragTo(spot, event->modifiers());
        view()->updateOverlay();
    }
    return true;
}

bool TBaseHotAreasHandler::mouseRelease(QMouseEvent *event, const TMouseSpot &spot)
{
    if (event->button() != Qt::LeftButton || !fIsPressed)
        return false;
    if (!fItem) { // it went while the button was held
        cancelGesture();
        return true;
    }
    const bool isDrag = fIsDragging;
    const TMouseSpot press = fPress;
    endPress();
    if (isDrag) {
        finishDrag();
    } else if (!fWasDragged) {
        click(press, event->modifiers(), Qt::LeftButton);
        emit hotAreaMouseBtnReleased(press.area, press.spectrum);
    }
    view()->updateOverlay();
    Q_UNUSED(spot)
    return true;
}

bool TBaseHotAreasHandler::mouseDoubleClick(QMouseEvent *event, const TMouseSpot &spot)
{
    if (event->button() != Qt::LeftButton || !spot.spectrum || !answers(spot) || !takesMouse(spot.area))
        return false;
    return doubleClick(spot);
}

bool TBaseHotAreasHandler::cancelGesture()
{
    if (!fIsPressed)
        return false;
    const bool wasDragging = fIsDragging;
    endPress();
    if (wasDragging)
        giveUpDrag();
    if (view())
        view()->updateOverlay();
    return true;
}

void TBaseHotAreasHandler::endPress()
{
    fIsPressed = false;
    fIsDragging = false;
    fPress = TMouseSpot();
}
