#include "ui/TMMActZoom.h"

#include "canvas/TCanvasItem.h"
#include "commands/TCmdZoomSpectra.h"
#include "commands/TCommandHistory.h"
#include "consts/Consts.h"
#include "ui/PlotCursors.h"
#include "ui/PlotSteps.h"

#include <QCoreApplication>
#include <QMouseEvent>

TMMActZoom::TMMActZoom(TKind kind)
    : TMMAct(kind == cIn ? Consts::Common::zoomInModeID : Consts::Common::zoomOutModeID)
    , fKind(kind)
{
}

QCursor TMMActZoom::cursor(const TMouseSpot &spot) const
{
    if (!spot.inCurves)
        return QCursor(Qt::ArrowCursor);
    return fKind == cIn ? PlotCursors::zoomIn() : PlotCursors::zoomOut();
}

QString TMMActZoom::hint() const
{
    return fKind == cIn ? QCoreApplication::translate("TMMActZoom", "Zoom In: drag a box, click for the full view.")
                        : QCoreApplication::translate("TMMActZoom", "Zoom Out: click to see twice as much.");
}

bool TMMActZoom::mousePress(QMouseEvent *event, const TMouseSpot &spot)
{
    if (event->button() == Qt::RightButton)
        return cancelGesture();
    if (event->button() != Qt::LeftButton || !spot.inCurves)
        return false;
    fBox.start(spot);
    return true;
}

bool TMMActZoom::mouseMove(QMouseEvent *event, const TMouseSpot &spot)
{
    if (!fBox.isActive() || fKind == cOut)
        return false;
    fBox.moveTo(view()->itemToView(*fBox.item()).inverted().map(spot.viewPos), event->modifiers());
    view()->updateOverlay();
    return true;
}

bool TMMActZoom::mouseRelease(QMouseEvent *event, const TMouseSpot &)
{
    if (event->button() != Qt::LeftButton || !fBox.isActive())
        return false;
    const TCanvasItemList items{fBox.item()};
    const QRectF rect = fBox.scaleRect();
    const QPointF start = fBox.startPos();
    const bool isClick = fBox.shape() == TZoomBox::cNone;
    fBox.cancel();
    if (fKind == cOut)
        PlotSteps::zoomAbout(view()->history(), items, start, 2.0, cBothDirs);
    else
        view()->history().push(
            new TCmdZoomSpectra(items, rect, isClick ? TCmdZoomSpectra::cFullView : TCmdZoomSpectra::cBox));
    view()->updateOverlay();
    return true;
}

bool TMMActZoom::mouseDoubleClick(QMouseEvent *, const TMouseSpot &spot)
{
    return spot.inCurves; // the clicks did what they do
}

bool TMMActZoom::cancelGesture()
{
    if (!fBox.isActive())
        return false;
    fBox.cancel();
    if (view())
        view()->updateOverlay();
    return true;
}

void TMMActZoom::paint(QPainter &painter)
{
    if (fBox.isActive())
        fBox.paint(painter, view()->itemToView(*fBox.item()));
}
