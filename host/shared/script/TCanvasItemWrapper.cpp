#include "script/TCanvasItemWrapper.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TPage.h"
#include "commands/TCmdMoveItem.h"
#include "script/ScriptUtils.h"
#include "script/TScriptRun.h"

#include <QScriptEngine>

namespace {

constexpr double cUnitsPerMm = 10.0;

} // namespace

TCanvasItemWrapper::TCanvasItemWrapper(TCanvasItem *item)
    : fItem(item)
{
}

TCanvasItem *TCanvasItemWrapper::item() const
{
    return fItem.get();
}

QString TCanvasItemWrapper::id() const
{
    return fItem ? fItem->uniqueId().toString() : QString();
}

QString TCanvasItemWrapper::type() const
{
    return fItem ? fItem->type() : QString();
}

bool TCanvasItemWrapper::isValid() const
{
    return Utils::Script::isOpenItem(fItem.get(), engine());
}

QScriptValue TCanvasItemWrapper::rect() const
{
    if (!fItem || !engine())
        return QScriptValue();
    QScriptValue place = engine()->newObject();
    place.setProperty("x", fItem->rect().x() / cUnitsPerMm);
    place.setProperty("y", fItem->rect().y() / cUnitsPerMm);
    place.setProperty("width", fItem->rect().width() / cUnitsPerMm);
    place.setProperty("height", fItem->rect().height() / cUnitsPerMm);
    return place;
}

void TCanvasItemWrapper::setRect(const QScriptValue &rect)
{
    if (!context())
        return;
    const auto number = [&rect](const char *name) { return rect.property(name).toNumber() * cUnitsPerMm; };
    const QRectF place(number("x"), number("y"), number("width"), number("height"));
    if (!isValid())
        Utils::Script::throwError(context(), Utils::Script::cInvalidObject);
    else if (!(place.width() > 0.0 && place.height() > 0.0 && qIsFinite(place.x()) && qIsFinite(place.y())))
        Utils::Script::throwError(context(), Utils::Script::cOutOfRange);
    else
        Utils::Script::doScriptHistoryCommand(new TCmdMoveItem({fItem.get()}, {place}), context(), 1);
}

void TCanvasItemWrapper::select()
{
    TScriptRun *run = TScriptRun::of(engine());
    if (run && isValid())
        run->select(fItem.get());
}

void TCanvasItemWrapper::update()
{
    if (fItem)
        fItem->update();
}

QScriptValue TCanvasItemWrapper::toJSON() const
{
    QScriptValue object = engine()->newObject();
    object.setProperty("id", id());
    object.setProperty("type", type());
    object.setProperty("title", fItem ? fItem->historyName() : QString());
    return object;
}
