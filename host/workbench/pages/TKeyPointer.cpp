#include "TKeyPointer.h"

#include "canvas/TCanvasSpectrum.h"
#include "consts/Consts.h"
#include "plot/T1DStackedPlot.h"
#include "ui/TMMAct.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace {

constexpr int cFar = 10; // points or pixels
constexpr Qt::KeyboardModifiers cAllowed = Qt::ShiftModifier | Qt::ControlModifier | Qt::KeypadModifier;

/// Where the curves of an item are, in pixels of the view; null when it shows none.
QRectF curvesOf(const IPlotView &view, const TCanvasItem *item)
{
    const auto *spectrum = dynamic_cast<const TCanvasSpectrum *>(item);
    const TBasePlot *plot = spectrum ? spectrum->activePlot() : nullptr;
    return plot ? view.itemToView(*item).mapRect(plot->plotter()->getPlotCurvesRect()) : QRectF();
}

bool isArrow(int key)
{
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

bool isEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

TKeyPointer::TKeyPointer(IPlotView &view)
    : fView(view)
{
}

bool TKeyPointer::isCross(const TMMAct &mode)
{
    return mode.id() == Consts::Common::crosshairModeID;
}

bool TKeyPointer::isShown(const TMMAct *mode) const
{
    return fIsOn && mode && !isCross(*mode);
}

void TKeyPointer::modeChanged(const TMMAct *mode, const TCanvasItem *active)
{
    fIsHeld = false;
    fIsOn = mode && (fIsOn || isCross(*mode));
    if (!isShown(mode))
        return;
    if (fIsPlaced && curvesOf(fView, active).contains(fPlace))
        send(QEvent::MouseMove); // the mode shows what it would do there
    else
        putOn(active);
}

/// In the middle of the curves; where it was before says nothing.
void TKeyPointer::putOn(const TCanvasItem *item)
{
    const QRectF curves = curvesOf(fView, item);
    fIsPlaced = !curves.isEmpty();
    if (!fIsPlaced)
        return;
    fPlace = curves.center();
    send(QEvent::MouseMove);
}

void TKeyPointer::follow(const TMMAct *mode)
{
    QPointF place;
    if (mode && mode->pointerPlace(place)) {
        fPlace = place;
        fIsPlaced = true;
    }
}

void TKeyPointer::mouseUsed(const QMouseEvent &event)
{
    if (event.source() == Qt::MouseEventSynthesizedByApplication)
        return;
    fIsOn = false;
    fIsHeld = false;
}

bool TKeyPointer::keyPress(const QKeyEvent &event, TMMAct *mode, const TCanvasItem *active)
{
    const bool isMove = isArrow(event.key());
    if (!mode || event.modifiers() & ~cAllowed || (!isMove && !isEnter(event.key())) || mode->wantsKey(event))
        return false;
    if (isCross(*mode) && isMove) {
        fIsOn = true;
        QPointF place;
        if (mode->pointerPlace(place))
            return false; // it goes from point to point by itself
        putOn(active);
        return fIsPlaced;
    }
    if (!fIsOn)
        return false;
    if (!fIsPlaced || !curvesOf(fView, active).contains(fPlace))
        putOn(active);
    if (!fIsPlaced)
        return false;
    const bool isShift = event.modifiers() & Qt::ShiftModifier;
    if (isMove) {
        move(event.key(), isShift, active);
        return true;
    }
    const Qt::KeyboardModifiers keys = event.modifiers() & Qt::ControlModifier;
    if (!fIsHeld)
        send(QEvent::MouseButtonPress, keys);
    const bool isRelease = fIsHeld || !isShift;
    fIsHeld = !isRelease;
    if (isRelease)
        send(QEvent::MouseButtonRelease, keys);
    return true;
}

/// So many points of the active spectrum further, at the same height; false where the curves are not drawn over one
/// axis.
bool TKeyPointer::nextPoint(bool right, int count, QPointF &place) const
{
    const TMouseSpot spot = fView.spotAt(fPlace);
    const auto *plot = dynamic_cast<const T1DStackedPlot *>(spot.plot);
    if (!plot || plot->hasRows())
        return false;
    QPointF here;
    QPointF next;
    const int index = plot->activeIndex();
    if (!plot->curvePoint(index, spot.scalePos.x(), 0, here))
        return false;
    const auto toView = [&](double x) {
        return fView.itemToView(*spot.item).map(plot->plotter()->scale2Canvas(QPointF(x, spot.scalePos.y())));
    };
    const double from = toView(here.x()).x();
    for (const int step : {count, -count}) { // the data may run to either side of the screen
        if (!plot->curvePoint(index, here.x(), step, next))
            return false;
        const double to = toView(next.x()).x();
        if (std::isfinite(to) && (right ? to > from : to < from)) {
            place.setX(to);
            return true;
        }
    }
    return false;
}

void TKeyPointer::move(int key, bool far, const TCanvasItem *item)
{
    const int count = far ? cFar : 1;
    const QRectF curves = curvesOf(fView, item); // whatever covers them at that place
    QPointF place = fPlace;
    if (key == Qt::Key_Up || key == Qt::Key_Down)
        place.ry() += key == Qt::Key_Down ? count : -count;
    else if (!nextPoint(key == Qt::Key_Right, count, place))
        place.rx() += key == Qt::Key_Right ? count : -count;
    fPlace =
        QPointF(qBound(curves.left(), place.x(), curves.right()), qBound(curves.top(), place.y(), curves.bottom()));
    send(QEvent::MouseMove);
}

void TKeyPointer::send(QEvent::Type type, Qt::KeyboardModifiers keys) const
{
    const auto *area = dynamic_cast<QAbstractScrollArea *>(&fView);
    if (!area || !area->isVisible())
        return; // every view has its pointer
    QWidget *viewport = area->viewport();
    const QPointF global = QPointF(viewport->mapToGlobal(QPoint(0, 0))) + fPlace;
    const bool isMove = type == QEvent::MouseMove;
    const bool isDown = type == QEvent::MouseButtonPress || (isMove && fIsHeld);
    QMouseEvent event(type, fPlace, fPlace, global, isMove ? Qt::NoButton : Qt::LeftButton,
                      isDown ? Qt::LeftButton : Qt::NoButton, keys, Qt::MouseEventSynthesizedByApplication);
    QCoreApplication::sendEvent(viewport, &event);
}

void TKeyPointer::paint(QPainter &painter, const TMMAct *mode) const
{
    constexpr double cArm = 9.0; // pixels
    constexpr double cHole = 3.0;
    if (!isShown(mode) || !fIsPlaced)
        return;
    const QVector<QLineF> arms{{fPlace - QPointF(cArm, 0), fPlace - QPointF(cHole, 0)},
                               {fPlace + QPointF(cHole, 0), fPlace + QPointF(cArm, 0)},
                               {fPlace - QPointF(0, cArm), fPlace - QPointF(0, cHole)},
                               {fPlace + QPointF(0, cHole), fPlace + QPointF(0, cArm)}};
    painter.save();
    for (const auto &pen : {QPen(Qt::white, 4.0), QPen(QColor(0x2B, 0x2F, 0x36), fIsHeld ? 3.0 : 1.75)}) {
        painter.setPen(pen);
        painter.drawLines(arms);
    }
    painter.restore();
}
