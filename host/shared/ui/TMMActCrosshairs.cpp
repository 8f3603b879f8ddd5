#include "ui/TMMActCrosshairs.h"

#include "canvas/TCanvasSpectrum.h"
#include "consts/Consts.h"
#include "plot/T1DStackedPlot.h"
#include "settings/TNumberFormat.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace {

constexpr int cLongStep = 10; // points
const QColor cColor(0xD0, 0x02, 0x1B);

} // namespace

TMMActCrosshairs::TMMActCrosshairs()
    : TMMAct(Consts::Common::crosshairModeID)
{
}

QCursor TMMActCrosshairs::cursor(const TMouseSpot &spot) const
{
    return QCursor(spot.inCurves ? Qt::BlankCursor : Qt::ArrowCursor);
}

QString TMMActCrosshairs::hint() const
{
    return QCoreApplication::translate("TMMActCrosshairs",
                                       "Crosshair: follows the curve (Shift: free), drag measures, click pins, Ctrl+C "
                                       "copies. Arrows move it, Enter clicks, Shift+Enter holds.");
}

TBasePlot *TMMActCrosshairs::plot() const
{
    const auto *spectrum = dynamic_cast<TCanvasSpectrum *>(fItem.get());
    return spectrum ? spectrum->activePlot() : nullptr;
}

TMMActCrosshairs::TCross TMMActCrosshairs::crossAt(const TMouseSpot &spot, bool free) const
{
    TCross cross;
    if (!spot.inCurves || !spot.plot)
        return cross;
    cross.fIsSet = true;
    cross.fReadout = spot.plot->readout(spot.itemPos);
    cross.fScale = spot.scalePos;
    const auto *stacked = dynamic_cast<const T1DStackedPlot *>(spot.plot);
    if (!free && !(stacked && stacked->hasRows()))
        cross.fScale = cross.fReadout.fPoint;
    return cross;
}

bool TMMActCrosshairs::mousePress(QMouseEvent *event, const TMouseSpot &spot)
{
    if (event->button() == Qt::RightButton)
        return cancelGesture();
    if (event->button() != Qt::LeftButton || !spot.inCurves)
        return false;
    fItem = TSecurePtr<TCanvasItem>(spot.item);
    fStart = crossAt(spot, event->modifiers() & Qt::ShiftModifier);
    fCross = fStart;
    view()->updateOverlay();
    return true;
}

bool TMMActCrosshairs::mouseMove(QMouseEvent *event, const TMouseSpot &spot)
{
    const bool isMeasuring = fStart.fIsSet;
    if (isMeasuring && spot.item != fItem.get())
        return true;
    if (!fPinned || isMeasuring) {
        fItem = TSecurePtr<TCanvasItem>(spot.item);
        fCross = crossAt(spot, event->modifiers() & Qt::ShiftModifier);
        view()->updateOverlay();
    }
    return isMeasuring;
}

bool TMMActCrosshairs::mouseRelease(QMouseEvent *event, const TMouseSpot &)
{
    if (event->button() != Qt::LeftButton || !fStart.fIsSet)
        return false;
    const bool isClick = fStart.fScale == fCross.fScale;
    fPinned = isClick && !fPinned;
    fStart = TCross();
    view()->updateOverlay();
    return true;
}

bool TMMActCrosshairs::keyPress(QKeyEvent *event)
{
    if (wantsKey(*event)) {
        QGuiApplication::clipboard()->setText(values());
        return true;
    }
    const bool isLeft = event->key() == Qt::Key_Left;
    auto *stacked = dynamic_cast<T1DStackedPlot *>(plot());
    if ((!isLeft && event->key() != Qt::Key_Right) || !fCross.fIsSet || !stacked)
        return false;
    int step = event->modifiers() & Qt::ShiftModifier ? cLongStep : 1;
    QPointF here;
    QPointF next;
    const int index = fCross.fReadout.fIndex;
    if (!stacked->curvePoint(index, fCross.fScale.x(), 0, here) || !stacked->curvePoint(index, here.x(), 1, next))
        return false;
    // along the data, or against them where they run to the left on the screen
    const bool dataRunRight = (next.x() >= here.x()) != stacked->horzAxis().drawnScale().isReversed();
    step = isLeft == dataRunRight ? -step : step;
    if (stacked->curvePoint(index, here.x(), step, next)) {
        fCross.fScale = next;
        fCross.fReadout = stacked->readout(stacked->plotter()->scale2Canvas(next));
        fPinned = true;
        view()->showReadout(fCross.fReadout);
        view()->updateOverlay();
    }
    return true;
}

bool TMMActCrosshairs::wantsKey(const QKeyEvent &event) const
{
    const bool isCopy = event.key() == Qt::Key_C && event.modifiers() == Qt::ControlModifier;
    return isCopy && fCross.fIsSet;
}

void TMMActCrosshairs::leave()
{
    fCross = TCross();
    fStart = TCross();
    fPinned = false;
}

bool TMMActCrosshairs::cancelGesture()
{
    if (!fStart.fIsSet && !fPinned)
        return false;
    fStart = TCross();
    fPinned = false;
    if (view())
        view()->updateOverlay();
    return true;
}

bool TMMActCrosshairs::pointerPlace(QPointF &viewPos) const
{
    if (!fCross.fIsSet || !plot() || !view())
        return false;
    viewPos = view()->itemToView(*fItem.get()).map(plot()->plotter()->scale2Canvas(fCross.fScale));
    return true;
}

QString TMMActCrosshairs::values() const
{
    return fCross.fIsSet ? QString("%1\t%2").arg(fCross.fScale.x(), 0, 'g', 17).arg(fCross.fScale.y(), 0, 'g', 17)
                         : QString();
}

QString TMMActCrosshairs::measured() const
{
    const QPointF delta = fCross.fScale - fStart.fScale;
    QString text = "dx " + TNumberFormat::fixed(delta.x(), plot()->viewDecimals(horzDir));
    const TPlotReadout &from = fStart.fReadout;
    const TPlotReadout &to = fCross.fReadout;
    if (!from.fSecondX.isEmpty() && !to.fSecondX.isEmpty())
        text += QString(" (%1 %2)")
                    .arg(TNumberFormat::fixed(to.fSecond - from.fSecond, to.fSecondDecimals), to.fSecondUnit);
    text += "  dy " + TNumberFormat::fixed(delta.y(), plot()->viewDecimals(vertDir));
    if (fStart.fScale.y() != 0.0)
        text += "  " + QCoreApplication::translate("TMMActCrosshairs", "ratio %1")
                           .arg(TNumberFormat::fixed(fCross.fScale.y() / fStart.fScale.y(), 3));
    return text;
}

void TMMActCrosshairs::drawCross(QPainter &painter, const TCross &cross, const QString &text) const
{
    const QPointF item = plot()->plotter()->scale2Canvas(cross.fScale);
    if (!std::isfinite(item.x()) || !std::isfinite(item.y()))
        return;
    const QTransform map = view()->itemToView(*fItem.get());
    const QRectF curves = map.mapRect(plot()->plotter()->getPlotCurvesRect());
    const QPointF at = map.map(item);
    painter.setPen(QPen(cColor, 1.0));
    painter.drawLine(QPointF(at.x(), curves.top()), QPointF(at.x(), curves.bottom()));
    if (at.y() >= curves.top() && at.y() <= curves.bottom())
        painter.drawLine(QPointF(curves.left(), at.y()), QPointF(curves.right(), at.y()));
    if (text.isEmpty())
        return;
    constexpr double cGap = 6.0;
    const QFontMetricsF metrics(painter.font());
    QRectF box(at + QPointF(cGap, -cGap - metrics.height()),
               QSizeF(metrics.horizontalAdvance(text) + 8, metrics.height()));
    if (box.right() > curves.right())
        box.moveRight(at.x() - cGap);
    if (box.top() < curves.top())
        box.moveTop(qMax(curves.top(), at.y() + cGap));
    painter.fillRect(box, QColor(255, 255, 255, 215));
    painter.drawText(box, Qt::AlignCenter, text);
}

void TMMActCrosshairs::paint(QPainter &painter)
{
    if (!fCross.fIsSet || !plot())
        return;
    painter.save();
    const bool isMeasuring = fStart.fIsSet && fStart.fScale != fCross.fScale;
    if (isMeasuring) {
        drawCross(painter, fStart, QString());
        drawCross(painter, fCross, measured());
    } else {
        const TPlotReadout &readout = fCross.fReadout;
        drawCross(painter, fCross, readout.fX + ", " + readout.fY);
    }
    painter.restore();
}
