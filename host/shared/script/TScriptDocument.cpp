#include "script/TScriptDocument.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "canvas/TStoredHistoryEntry.h"
#include "commands/TCmdDeleteItems.h"
#include "commands/TCmdPages.h"
#include "exchange/PagePrinting.h"
#include "script/ScriptExchange.h"
#include "script/ScriptUtils.h"
#include "script/TScriptPage.h"
#include "script/TScriptRun.h"
#include "services/IPluginHost.h"

#include <QRectF>
#include <QScriptContext>
#include <QUndoStack>
#include <cmath>

using namespace Utils::Script;

namespace {

/// A value of a history entry as one that scripts can read: the engine makes empty objects of what it does not know.
QVariant readable(const QVariant &value)
{
    if (value.userType() == QMetaType::QVariantMap) {
        QVariantMap map = value.toMap();
        for (QVariant &entry : map)
            entry = readable(entry);
        return map;
    }
    if (value.userType() == QMetaType::QVariantList) {
        QVariantList list = value.toList();
        for (QVariant &entry : list)
            entry = readable(entry);
        return list;
    }
    if (value.userType() == QMetaType::QRectF || value.userType() == QMetaType::QRect) {
        const QRectF rect = value.toRectF();
        return QVariantMap{{"x", rect.x()}, {"y", rect.y()}, {"width", rect.width()}, {"height", rect.height()}};
    }
    if (value.userType() == QMetaType::QSizeF || value.userType() == QMetaType::QSize)
        return QVariantMap{{"width", value.toSizeF().width()}, {"height", value.toSizeF().height()}};
    if (value.userType() == QMetaType::QPointF || value.userType() == QMetaType::QPoint)
        return QVariantMap{{"x", value.toPointF().x()}, {"y", value.toPointF().y()}};
    const bool isText = value.userType() == QMetaType::QUuid || value.userType() == QMetaType::QColor ||
                        value.userType() == QMetaType::QByteArray;
    return isText ? QVariant(value.toString()) : value;
}

} // namespace

TScriptDocument::TScriptDocument(TScriptRun &run)
    : fRun(run)
{
}

void TScriptDocument::install(QScriptEngine &engine)
{
    TScriptRun *run = TScriptRun::of(&engine);
    const QScriptValue object =
        engine.newQObject(new TScriptDocument(*run), QScriptEngine::ScriptOwnership, cPublished);
    engine.globalObject().setProperty("document", object, QScriptValue::ReadOnly | QScriptValue::Undeletable);
    ScriptExchange::install(engine);
}

TDocument &TScriptDocument::document() const
{
    return *fRun.host().document();
}

QString TScriptDocument::path() const
{
    return document().path();
}

bool TScriptDocument::isModified() const
{
    return document().isModified();
}

QScriptValue TScriptDocument::pages() const
{
    return fRun.wrapAll(&document().pages(), document().pages());
}

QScriptValue TScriptDocument::items() const
{
    QList<TCanvasItem *> all;
    for (ICanvasItem *item : document().items())
        all.append(canvasItem(item));
    return fRun.wrapAll(&document(), all);
}

QScriptValue TScriptDocument::history() const
{
    QScriptEngine &engine = fRun.engine();
    QScriptValue array = engine.newArray();
    quint32 count = 0;
    for (const TStoredHistoryEntry &entry : document().historyEntries()) {
        QScriptValue object = engine.newObject();
        object.setProperty("description", entry.fDescription);
        object.setProperty("item", entry.fItemId.toString());
        object.setProperty("undone", entry.fUndone);
        QScriptValue params = engine.newArray();
        for (int i = 0; i < entry.fParams.size(); ++i) {
            QScriptValue param = engine.newObject();
            param.setProperty("name", entry.fParams.at(i).fName);
            param.setProperty("value", engine.toScriptValue(readable(entry.fParams.at(i).fValue)));
            param.setProperty("text", entry.fParams.at(i).fText);
            params.setProperty(quint32(i), param);
        }
        object.setProperty("parameters", params);
        array.setProperty(count++, object);
    }
    return array;
}

QScriptValue TScriptDocument::item(const QScriptValue &which) const
{
    if (!hasArguments(context(), {"which"}))
        return QScriptValue();
    const TCanvasItemList all = document().items();
    if (!which.isNumber())
        return fRun.wrap(canvasItem(canvasItemFromScriptValue(which)));
    const double place = which.toNumber();
    const bool isPlace = place == std::floor(place) && place >= 0.0 && place < all.size();
    return isPlace ? fRun.wrap(canvasItem(all.at(int(place)))) : QScriptValue();
}

QScriptValue TScriptDocument::newPage(const QString &title)
{
    TDocument &target = document();
    doScriptHistoryCommand(TCmdPages::newPage(&target, target.pages().size()), context(), 1);
    TPage *page = target.pages().isEmpty() ? nullptr : target.pages().last();
    if (page && !title.isEmpty())
        doScriptHistoryCommand(TCmdPages::renamePage(&target, page, title), context(), 1);
    return fRun.wrap(page);
}

void TScriptDocument::removeItem(const QScriptValue &item)
{
    if (!hasArguments(context(), {"item"}))
        return;
    ICanvasItem *found = canvasItemFromScriptValue(item);
    if (!found)
        throwError(context(), cWrongType);
    else if (!isOpenItem(canvasItem(found), engine()))
        throwError(context(), cInvalidObject);
    else
        doScriptHistoryCommand(new TCmdDeleteItems({found}), context(), 1);
}

void TScriptDocument::save(const QString &path)
{
    const QString target = path.isEmpty() ? document().path() : fRun.absolutePath(path);
    QString error;
    if (target.isEmpty())
        throwError(context(), cWrongCount, tr("The document has no path yet: give one to save."));
    else if (maySave(context(), target) && !document().saveTo(target, &error))
        throwError(context(), cInvalidObject, QStringLiteral("%1: %2").arg(target, error));
}

int TScriptDocument::undo(int steps)
{
    QUndoStack *stack = document().history().stack();
    int done = 0;
    for (; done < steps && stack->canUndo(); ++done)
        stack->undo();
    return done;
}

int TScriptDocument::redo(int steps)
{
    QUndoStack *stack = document().history().stack();
    int done = 0;
    for (; done < steps && stack->canRedo(); ++done)
        stack->redo();
    return done;
}

void TScriptDocument::print(const QString &printer)
{
    const bool isFile = printer.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive);
    const QString target = isFile ? fRun.absolutePath(printer) : printer;
    QString error;
    if (!isFile && fRun.reach().isLimited())
        throwError(context(), cWrongType, tr("The script may not print."));
    else if ((!isFile || mayWrite(context(), target)) && !PagePrinting::print(document(), target, isFile, error))
        throwError(context(), cInvalidObject, error);
}

QScriptValue TScriptDocument::toJSON() const
{
    QScriptValue object = fRun.engine().newObject();
    object.setProperty("path", path());
    object.setProperty("isModified", isModified());
    object.setProperty("pages", pages());
    return object;
}
