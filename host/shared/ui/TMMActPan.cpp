#include "ui/TMMActPan.h"

#include "commands/TCommandHistory.h"
#include "consts/Consts.h"

#include <QCoreApplication>
#include <QMouseEvent>

TMMActPan::TMMActPan()
    : TMMAct(Consts::Common::panModeID)
{
}

QCursor TMMActPan::cursor(const TMouseSpot &spot) const
{
    if (fPan.isActive())
        return QCursor(Qt::ClosedHandCursor);
    return QCursor(spot.inCurves ? Qt::OpenHandCursor : Qt::ArrowCursor);
}

QString TMMActPan::hint() const
{
    return QCoreApplication::translate("TMMActPan", "Pan: drag moves the curves (Shift: along x, Ctrl: along y).");
}

bool TMMActPan::mousePress(QMouseEvent *event, const TMouseSpot &spot)
{
    if (event->button() == Qt::RightButton)
        return cancelGesture();
    if (event->button() != Qt::LeftButton || !spot.inCurves)
        return false;
    int mask = cBothDirs;
    if (event->modifiers() & Qt::ShiftModifier)
        mask = horzDir;
    else if (event->modifiers() & Qt::ControlModifier)
        mask = vertDir;
    fPan.start(spot, mask);
    return true;
}

bool TMMActPan::mouseMove(QMouseEvent *, const TMouseSpot &spot)
{
    if (!fPan.isActive())
        return false;
    fPan.moveTo(view()->itemToView(*fPan.item()).inverted().map(spot.viewPos));
    return true;
}

bool TMMActPan::mouseRelease(QMouseEvent *event, const TMouseSpot &)
{
    if (event->button() != Qt::LeftButton || !fPan.isActive())
        return false;
    if (TCommand *command = fPan.finish())
        view()->history().push(command);
    return true;
}

bool TMMActPan::cancelGesture()
{
    if (!fPan.isActive())
        return false;
    fPan.cancel();
    return true;
}
