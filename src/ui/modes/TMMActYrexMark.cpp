#include "TMMActYrexMark.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexModePaint.h"
#include "plot/TBasePlot.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPixmap>
#include <cmath>

namespace {

constexpr double cClickPixels = 2.0; // a shorter drag is a click

} // namespace

TMMActYrexMark::TMMActYrexMark(const QUuid &id, IPluginHost &host, const char *cursorFile)
    : TMMAct(id)
    , fHost(host)
    , fCursor(cursorFrom(cursorFile))
{
}

QCursor TMMActYrexMark::cursorFrom(const char *file)
{
    const QPixmap picture{QString::fromLatin1(file)};
    return picture.isNull() ? QCursor(Qt::CrossCursor) : QCursor(picture, 0, 0);
}

QCursor TMMActYrexMark::cursor(const TMouseSpot &spot) const
{
    const bool isOver = isDragging() || (view() && TYrexModePlot(spot.item, *view()).isValid());
    return isOver ? fCursor : QCursor(Qt::ArrowCursor);
}

TCanvasYrexSpectrum *TMMActYrexMark::activeItem() const
{
    const TCanvasItemList &selected = fHost.itemList();
    ICanvasItem *active = selected.isRttiActive(TCanvasYrexSpectrum::cRtti);
    return yrexItem(active ? active : selected.firstRtti(TCanvasYrexSpectrum::cRtti));
}

TCanvasItemList TMMActYrexMark::targetsOf(TCanvasItem *item) const
{
    const TCanvasItemList selected = fHost.itemList().getByRtti(TCanvasYrexSpectrum::cRtti);
    return selected.contains(item) ? selected : TCanvasItemList{item};
}

void TMMActYrexMark::leaveIfDone() const
{
    const TCanvasYrexSpectrum *item = activeItem();
    const TYrexSpectrum *spectrum = item ? item->currentSpectrum() : nullptr;
    if (spectrum && !hasWork(*spectrum) && fHost.gui() && fHost.gui()->mouseMode() == id())
        fHost.gui()->setMouseMode(QUuid());
}

/// A drag keeps to the row or column in which it began.
TYrexModePlot TMMActYrexMark::draggedPlot() const
{
    return TYrexModePlot(fDragged.get(), *view(), view()->itemToView(*fDragged.get()).map(fStartItemPos));
}

TYrexModePlot TMMActYrexMark::shownPlot() const
{
    if (isDragging())
        return draggedPlot();
    const TMouseSpot spot = fIsInside ? view()->spotAt(fPos) : TMouseSpot();
    return TYrexModePlot(spot.inCurves ? spot.item : nullptr, *view(), fPos);
}

TYrexModeDrag TMMActYrexMark::drag(const TYrexModePlot &plot) const
{
    TYrexModeDrag drag;
    drag.fStartX = fStartX;
    drag.fX = xOf(plot, fPos);
    drag.fPos = fPos;
    drag.fKeys = fKeys;
    drag.fWidth = std::fabs(plot.columnOf(drag.fX) - plot.columnOf(fStartX));
    const QPointF way = fPos - plot.itemToView().map(fStartItemPos);
    drag.fIsClick = std::hypot(way.x(), way.y()) < cClickPixels;
    return drag;
}

bool TMMActYrexMark::mousePress(QMouseEvent *event, const TMouseSpot &spot)
{
    if (event->button() == Qt::RightButton)
        return cancelGesture();
    if (event->button() != Qt::LeftButton || !spot.inCurves)
        return false;
    const TYrexModePlot plot(spot.item, *view(), spot.viewPos);
    if (!plot.isValid())
        return false;
    if (!fHost.itemList().contains(spot.item))
        view()->selectItem(spot.item, false);
    fPos = spot.viewPos;
    fIsInside = true;
    fKeys = event->modifiers();
    fStartItemPos = spot.itemPos;
    fStartX = xOf(plot, fPos);
    fDragged = TSecurePtr<TCanvasItem>(spot.item);
    begun(plot);
    moved(plot);
    view()->updateOverlay();
    return true;
}

bool TMMActYrexMark::mouseMove(QMouseEvent *event, const TMouseSpot &spot)
{
    fPos = spot.viewPos;
    fIsInside = true;
    fKeys = event->modifiers();
    const TYrexModePlot plot = shownPlot();
    if (plot.isValid())
        moved(plot);
    const bool takes = isDragging();
    if (takes)
        view()->showReadout(spot.inCurves ? spot.plot->readout(spot.itemPos) : TPlotReadout());
    else
        leaveIfDone();
    if (view())
        view()->updateOverlay();
    return takes;
}

bool TMMActYrexMark::mouseRelease(QMouseEvent *event, const TMouseSpot &spot)
{
    if (event->button() != Qt::LeftButton || !isDragging())
        return false;
    fPos = spot.viewPos;
    fKeys = event->modifiers();
    const TYrexModePlot plot = draggedPlot();
    if (!plot.isValid())
        return cancelGesture();
    moved(plot);
    const TYrexModeDrag done = drag(plot);
    fDragged = TSecurePtr<TCanvasItem>();
    finished(plot, done);
    leaveIfDone();
    if (view())
        view()->updateOverlay();
    return true;
}

bool TMMActYrexMark::mouseDoubleClick(QMouseEvent *event, const TMouseSpot &spot)
{
    if (event->button() != Qt::LeftButton || !spot.inCurves)
        return false;
    return takesDoubleClicks() ? mousePress(event, spot) : TYrexModePlot(spot.item, *view()).isValid();
}

/// The state of a key that is itself pressed or released is not yet among the modifiers of its event.
void TMMActYrexMark::setKey(const QKeyEvent &event, bool isDown)
{
    Qt::KeyboardModifier key = Qt::NoModifier;
    if (event.key() == Qt::Key_Shift)
        key = Qt::ShiftModifier;
    else if (event.key() == Qt::Key_Alt)
        key = Qt::AltModifier;
    if (key == Qt::NoModifier || fKeys.testFlag(key) == isDown)
        return;
    fKeys.setFlag(key, isDown);
    const TYrexModePlot plot = shownPlot();
    if (plot.isValid())
        moved(plot);
    view()->updateOverlay();
}

bool TMMActYrexMark::keyPress(QKeyEvent *event)
{
    setKey(*event, true);
    return false;
}

bool TMMActYrexMark::keyRelease(QKeyEvent *event)
{
    setKey(*event, false);
    return false;
}

void TMMActYrexMark::pointerLeft()
{
    fIsInside = false;
    if (view())
        view()->updateOverlay();
}

void TMMActYrexMark::leave()
{
    cancelGesture();
    fIsInside = false;
    fKeys = Qt::NoModifier;
}

bool TMMActYrexMark::cancelGesture()
{
    if (!isDragging())
        return false;
    fDragged = TSecurePtr<TCanvasItem>();
    if (view())
        view()->updateOverlay();
    return true;
}

void TMMActYrexMark::paint(QPainter &painter)
{
    const TYrexModePlot plot = shownPlot();
    if (!plot.isValid())
        return;
    const TYrexModePaint paint(painter, plot);
    if (isDragging())
        paintDrag(paint, plot, drag(plot));
    else
        paintHover(paint, plot, view()->spotAt(fPos));
}
