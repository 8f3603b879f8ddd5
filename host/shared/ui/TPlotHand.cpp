#include "ui/TPlotHand.h"

#include "canvas/TCanvasSpectrum.h"
#include "commands/TCmdChangeSpectraIntensity.h"
#include "commands/TCmdZoomSpectra.h"
#include "commands/TCommandHistory.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/T1DStackedBasePlotter.h"
#include "plot/T1DStackedPlot.h"
#include "ui/PlotHabits.h"
#include "ui/PlotSteps.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <cmath>

namespace {

constexpr double cWheelZoom = 1.25; // a notch
constexpr double cWheelSpacing = 1.1;
constexpr double cNotch = 120.0; // of Qt's angle
constexpr int cRunPause = 800;   // milliseconds that end a run of wheel events
constexpr double cKeyPan = 0.1;  // of the axis

} // namespace

TPlotHand::TPlotHand()
    : TMMAct(QUuid())
{
    fRunEnd.setSingleShot(true);
    fRunEnd.setInterval(cRunPause);
    connect(&fRunEnd, &QTimer::timeout, this, &TPlotHand::endRun);
}

QCursor TPlotHand::cursor(const TMouseSpot &spot) const
{
    if (fPan.isActive())
        return QCursor(Qt::ClosedHandCursor);
    const bool onAxis = spot.place == placeOnHorzAxis || spot.place == placeOnVertAxis;
    return QCursor(onAxis || (fSpaceHeld && spot.inCurves) ? Qt::OpenHandCursor : Qt::ArrowCursor);
}

QString TPlotHand::hint() const
{
    switch (fPlace) {
    case placeInCurves:
        if (PlotHabits::isWheelIntensity())
            return tr("Drag zooms, wheel changes the intensity (Ctrl: zooms x), middle button pans, double click: full "
                      "view.");
        return tr("Drag zooms, wheel zooms x (Ctrl: intensity), middle button pans, double click: full view.");
    case placeOnHorzAxis:
    case placeOnVertAxis:
        return tr("Drag pans, wheel zooms, double click: limits.");
    case placeOnRim:
        return fOnTitle ? tr("Drag moves the item, double click edits the title.")
                        : tr("Drag moves the item, handles resize it.");
    default:
        return QString();
    }
}

bool TPlotHand::startPan(const TMouseSpot &spot)
{
    int mask = 0;
    if (spot.inCurves)
        mask = cBothDirs;
    else if (spot.place == placeOnHorzAxis)
        mask = horzDir;
    else if (spot.place == placeOnVertAxis)
        mask = vertDir;
    if (mask != 0)
        fPan.start(spot, mask);
    return mask != 0;
}

bool TPlotHand::mousePress(QMouseEvent *event, const TMouseSpot &spot)
{
    endRun();
    if (event->button() == Qt::RightButton)
        return cancelGesture();
    if (!spot.plot || event->modifiers() & Qt::AltModifier)
        return false;
    if (event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && fSpaceHeld))
        return startPan(spot);
    if (event->button() != Qt::LeftButton)
        return false;
    if (spot.inCurves) {
        fBox.start(spot);
        return true;
    }
    if (spot.place != placeOnHorzAxis && spot.place != placeOnVertAxis)
        return false;
    view()->selectItem(spot.item, event->modifiers() & Qt::ControlModifier);
    return startPan(spot);
}

void TPlotHand::hover(const TMouseSpot &spot)
{
    fPlace = spot.place;
    fOnTitle = spot.onTitle;
    const auto *plotter = spot.inCurves ? dynamic_cast<T1DStackedBasePlotter *>(spot.plot->plotter()) : nullptr;
    view()->pointAt(spot.spectrum, plotter ? plotter->indexOfPointedStackedCurve(spot.itemPos) : -1);
    view()->showReadout(spot.inCurves ? spot.plot->readout(spot.itemPos) : TPlotReadout());
}

bool TPlotHand::mouseMove(QMouseEvent *event, const TMouseSpot &spot)
{
    if (fPan.isActive()) {
        fPan.moveTo(view()->itemToView(*fPan.item()).inverted().map(spot.viewPos));
        return true;
    }
    if (fBox.isActive()) {
        fBox.moveTo(view()->itemToView(*fBox.item()).inverted().map(spot.viewPos), event->modifiers());
        view()->showReadout(spot.inCurves ? spot.plot->readout(spot.itemPos) : TPlotReadout());
        view()->updateOverlay();
        return true;
    }
    hover(spot);
    return false;
}

void TPlotHand::click(QMouseEvent *event, const TMouseSpot &spot)
{
    const bool toggles = event->modifiers() & Qt::ControlModifier;
    const bool extends = event->modifiers() & Qt::ShiftModifier;
    const auto *plotter = spot.inCurves ? dynamic_cast<T1DStackedBasePlotter *>(spot.plot->plotter()) : nullptr;
    const int index = plotter ? plotter->indexOfPointedStackedCurve(spot.itemPos) : -1;
    IStackedItemCtx *stack = spot.item ? spot.item->stackedContext() : nullptr;
    if (index < 0 || !stack || stack->count() < 2) {
        view()->selectItem(spot.item, toggles);
        return;
    }
    view()->selectItem(spot.item, false);
    if (toggles || extends) {
        QVector<int> selected;
        const QList<quint32> ids = stack->ids(false, true);
        for (int i = 0; i < stack->count(); ++i) {
            if (ids.contains(quint32(stack->idOf(i))))
                selected.append(i);
        }
        if (extends) {
            const int from = stack->activeIndex();
            for (int i = qMin(from, index); i <= qMax(from, index); ++i) {
                if (!selected.contains(i))
                    selected.append(i);
            }
        } else if (!selected.removeOne(index)) {
            selected.append(index);
        }
        if (!selected.isEmpty()) // the last one stays
            stack->setSelected(selected);
    } else {
        view()->history().push(spot.item->activeSpectrumCommand(TCanvasItemList{spot.item}, index));
    }
    spot.item->update();
    view()->stackChanged(spot.item);
}

bool TPlotHand::mouseRelease(QMouseEvent *event, const TMouseSpot &spot)
{
    if (fPan.isActive()) {
        if (TCommand *command = fPan.finish())
            view()->history().push(command);
        return true;
    }
    if (event->button() != Qt::LeftButton || !fBox.isActive())
        return false;
    TCanvasItem *item = fBox.item();
    const QRectF rect = fBox.scaleRect();
    const bool isClick = fBox.shape() == TZoomBox::cNone;
    fBox.cancel();
    if (isClick) {
        click(event, spot);
    } else {
        view()->selectItem(item, false);
        view()->history().push(new TCmdZoomSpectra({item}, rect, TCmdZoomSpectra::cBox));
    }
    view()->updateOverlay();
    return true;
}

bool TPlotHand::mouseDoubleClick(QMouseEvent *event, const TMouseSpot &spot)
{
    if (event->button() != Qt::LeftButton || !spot.inCurves || spot.onTitle)
        return false;
    view()->history().push(new TCmdZoomSpectra({spot.item}, QRectF(), TCmdZoomSpectra::cFullView));
    return true;
}

bool TPlotHand::keyPress(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) {
        fSpaceHeld = true;
        return true;
    }
    if (fItems.isEmpty() || event->modifiers() & ~(Qt::KeypadModifier))
        return false;
    switch (event->key()) {
    case Qt::Key_Left:
        PlotSteps::panBy(view()->history(), fItems, -cKeyPan, 0.0);
        return true;
    case Qt::Key_Right:
        PlotSteps::panBy(view()->history(), fItems, cKeyPan, 0.0);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        beginRun(); // steps that follow each other quickly are one
        if (!PlotSteps::stepActive(view()->history(), fItems, event->key() == Qt::Key_Up ? -1 : 1))
            return false;
        view()->stackChanged(canvasItem(fItems.first()));
        return true;
    default:
        return false;
    }
}

bool TPlotHand::keyRelease(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Space || event->isAutoRepeat())
        return false;
    fSpaceHeld = false;
    return true;
}

void TPlotHand::beginRun()
{
    if (!fRunEnd.isActive()) {
        fInRun = true;
        view()->history().beginGesture();
    }
    fRunEnd.start();
}

void TPlotHand::endRun()
{
    fRunEnd.stop();
    if (fInRun)
        view()->history().endGesture();
    fInRun = false;
}

int TPlotHand::wheelMask(const QWheelEvent &event, const TMouseSpot &spot) const
{
    const bool isVert = spot.place == placeOnVertAxis;
    const bool isOther = event.modifiers() & Qt::ShiftModifier;
    return isVert != isOther ? vertDir : horzDir;
}

/// On a strip the wheel zooms its axis, whatever it does on the curves.
bool TPlotHand::isIntensityWheel(const QWheelEvent &event, const TMouseSpot &spot) const
{
    const bool isCtrl = event.modifiers() & Qt::ControlModifier;
    if (!spot.inCurves || event.modifiers() & Qt::ShiftModifier)
        return isCtrl;
    return isCtrl != PlotHabits::isWheelIntensity();
}

bool TPlotHand::wheel(QWheelEvent *event, const TMouseSpot &spot)
{
    const bool isOnPlot = spot.inCurves || spot.place == placeOnHorzAxis || spot.place == placeOnVertAxis;
    if (!spot.plot || !isOnPlot)
        return false;
    const QPoint angle = event->angleDelta();
    const TCanvasItemList items{spot.item};
    beginRun();
    const bool isPan = event->phase() == Qt::ScrollUpdate && !event->pixelDelta().isNull() &&
                       !(event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier));
    const bool isSideways = angle.x() != 0 && angle.y() == 0 && !(event->modifiers() & Qt::AltModifier);
    if (isPan || (isSideways && !(event->modifiers() & Qt::ShiftModifier))) {
        const double scale = spot.plot->viewScale() > 0.0 ? spot.plot->viewScale() : 1.0;
        const QPointF delta = isPan ? QPointF(event->pixelDelta()) : QPointF(angle.x() / 2.0, 0.0);
        view()->history().push(spot.item->panCommand(items, delta.x() / scale, -delta.y() / scale));
        return true;
    }
    const double notches = (angle.y() != 0 ? angle.y() : angle.x()) / cNotch;
    const Qt::KeyboardModifiers both = Qt::ControlModifier | Qt::ShiftModifier;
    if ((event->modifiers() & both) == both) {
        PlotSteps::changeSpacing(view()->history(), items, std::pow(cWheelSpacing, notches));
    } else if (isIntensityWheel(*event, spot)) {
        const double factor = std::pow(TBasePlot::cDefIntensityFactor, std::abs(notches) - 1.0);
        view()->history().push(new TCmdChangeSpectraIntensity(items, notches > 0.0, factor));
    } else {
        const double factor = std::pow(cWheelZoom, -notches);
        PlotSteps::zoomAbout(view()->history(), items, spot.itemPos, factor, wheelMask(*event, spot));
    }
    return true;
}

bool TPlotHand::cancelGesture()
{
    const bool wasActive = fBox.isActive() || fPan.isActive();
    fBox.cancel();
    if (fPan.isActive())
        fPan.cancel();
    if (wasActive && view())
        view()->updateOverlay();
    return wasActive;
}

void TPlotHand::paint(QPainter &painter)
{
    if (fBox.isActive())
        fBox.paint(painter, view()->itemToView(*fBox.item()));
}
