#include "ui/TBaseCursorInfoHandler.h"

#include "canvas/TCanvasItem.h"
#include "ui/TMouseSpot.h"

TCursorInfoNotifier::TCursorInfoNotifier(int rtti, const TBaseCursorInfoHandler &handler, QObject *parent)
    : QObject(parent)
    , fRtti(rtti)
    , fHandler(handler)
{
}

QString TCursorInfoNotifier::notify(const TMouseSpot &spot)
{
    QString text = spot.item && spot.item->rtti() == fRtti ? fHandler.infoAt(spot) : QString();
    if (text == fText)
        return text;
    fText = text;
    emit cursorInfoChanged(text);
    return text;
}
