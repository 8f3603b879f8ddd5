#pragma once

#include <QScriptEngine>
#include <QScriptValue>
#include <QString>
#include <QStringList>
#include <QVariantList>

class ICanvasItem;
class QScriptContext;
class TCanvasItem;
class TCommand;

namespace Consts {
namespace Script {

extern const char cIncorrectNumberOfArgs[];
extern const char cIncorrectArguments[];

} // namespace Script
} // namespace Consts

/// What script objects of the host and of plug-ins have in common.
namespace Utils {
namespace Script {

enum TErrorCode { cWrongCount = 1, cWrongType = 2, cOutOfRange = 4, cInvalidObject = 5 };

/// What scripts see of an object: its own business, and no way to destroy it before the engine does.
const QScriptEngine::QObjectWrapOptions cPublished =
    QScriptEngine::ExcludeDeleteLater | QScriptEngine::ExcludeChildObjects;

/// The property of constructors and prototypes that holds the name of their class.
extern const char cTypeNameString[];

/// Throws an Error with the properties `code` and `message`; an empty text gets that of the code. Returns what the
/// caller has to return.
QScriptValue throwError(QScriptContext *context, int code, const QString &text = QString());
/// Throws for a property that may only be read; does nothing outside of scripts.
void refuseWriting(QScriptContext *context);
/// Whether a call has an argument for each of the names; throws otherwise, with the first one that is missing.
bool hasArguments(QScriptContext *context, const QStringList &names);
/// Tells the console and the log, with file and line, and does not stop the script. Returns undefined.
QScriptValue scriptWarning(QScriptContext *context, const QString &text);
/// Pushes a command on the history of the document; its entries get the parameter "script", file and line. Flag 1: a
/// command that has nothing to do is deleted; 0: it stays the caller's when it knows so beforehand. Whether it was
/// pushed.
bool doScriptHistoryCommand(TCommand *command, QScriptContext *context, int flag);
/// The item of a wrapper, of a variant that holds an item, or of an id in the open document; null for others.
ICanvasItem *canvasItemFromScriptValue(const QScriptValue &value);
/// Whether an item stands in the open document. Others may be undone, or of another document: commands on them would
/// stand in the wrong history and outlive them.
bool isOpenItem(const TCanvasItem *item, const QScriptEngine *engine);
/// An array, object or plain value as a variant; invalid, with `isOk` false, for one that is nested too deeply (as one
/// that holds itself is) or too long to be an argument.
QVariant plainVariant(const QScriptValue &value, bool *isOk = nullptr);
/// The same without properties that run code of the script when they are read; within the same bounds.
QScriptValue plainCopy(const QScriptValue &value, bool &isOk);
/// The arguments of a call; items as their ids.
QVariantList contextToVariantList(QScriptContext *context);
/// Whether the script may read the file at a whole path, write it, or save the open document to it: not where the run's
/// reach ends, and not for the reasons of TScriptRun::writeRefusal and saveRefusal. Throws otherwise.
bool mayRead(QScriptContext *context, const QString &path);
bool mayWrite(QScriptContext *context, const QString &path);
bool maySave(QScriptContext *context, const QString &path);
/// "file:line" of the script that made the call; empty outside of scripts.
QString placeOf(QScriptContext *context);

/// Publishes a class of wrappers: values of their pointers go to scripts and back, and `name` is a constructor with
/// that prototype.
template <class TWrapper>
void registerCustomType(QScriptEngine *engine, const QString &name, QScriptEngine::FunctionSignature constructor,
                        QScriptValue prototype)
{
    prototype.setProperty(QLatin1String(cTypeNameString), name, QScriptValue::SkipInEnumeration);
    qScriptRegisterMetaType<TWrapper *>(
        engine,
        [](QScriptEngine *at, TWrapper *const &wrapper) {
            return wrapper ? at->newQObject(wrapper, QScriptEngine::ScriptOwnership, cPublished) : at->undefinedValue();
        },
        [](const QScriptValue &value, TWrapper *&wrapper) { wrapper = qobject_cast<TWrapper *>(value.toQObject()); },
        prototype);
    QScriptValue function = engine->newFunction(constructor, prototype);
    function.setProperty(QLatin1String(cTypeNameString), name, QScriptValue::SkipInEnumeration);
    engine->globalObject().setProperty(name, function);
}

} // namespace Script
} // namespace Utils
