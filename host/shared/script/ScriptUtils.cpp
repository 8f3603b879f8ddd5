#include "script/ScriptUtils.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "commands/ICommandRemarks.h"
#include "commands/TCommand.h"
#include "commands/TCommandHistory.h"
#include "history/THistoryCommand.h"
#include "script/TCanvasItemWrapper.h"
#include "script/TScriptRun.h"
#include "services/IPluginHost.h"

#include <QFileInfo>
#include <QScriptContext>
#include <QScriptContextInfo>
#include <QScriptValueIterator>

const char Consts::Script::cIncorrectNumberOfArgs[] = "Incorrect number of arguments";
const char Consts::Script::cIncorrectArguments[] = "Incorrect arguments";
const char Utils::Script::cTypeNameString[] = "__typeName__";

namespace {

QString defaultText(int code)
{
    using namespace Utils::Script;
    switch (code) {
    case cWrongCount:
        return QLatin1String(Consts::Script::cIncorrectNumberOfArgs);
    case cWrongType:
        return QLatin1String(Consts::Script::cIncorrectArguments);
    case cOutOfRange:
        return QStringLiteral("Argument out of range");
    case cInvalidObject:
        return QStringLiteral("Invalid object");
    default:
        return QStringLiteral("Error %1").arg(code);
    }
}

constexpr int cDeepest = 64;
constexpr double cMostValues = 1e7;

/// Whether a value may be converted: the engine does so by recursion, and takes the length of an array for the number
/// of its values. `room` is how many may still come.
bool isBounded(const QScriptValue &value, int depth, double &room)
{
    if (!value.isObject() || value.isVariant() || value.isQObject() || value.isDate() || value.isFunction())
        return true;
    if (value.isArray())
        room -= value.property("length").toNumber();
    if (depth >= cDeepest || !(room >= 0.0))
        return false;
    QScriptValueIterator it(value);
    while (it.hasNext()) {
        it.next();
        if (--room < 0.0 || !isBounded(it.value(), depth + 1, room))
            return false;
    }
    return true;
}

QScriptValue copyOf(const QScriptValue &value)
{
    const bool isLeaf = !value.isObject() || value.isVariant() || value.isQObject() || value.isDate() ||
                        value.isFunction() || value.isRegExp();
    if (isLeaf)
        return value;
    const quint32 length = value.isArray() ? value.property("length").toUInt32() : 0;
    QScriptValue copy = value.isArray() ? value.engine()->newArray(length) : value.engine()->newObject();
    QScriptValueIterator it(value);
    while (it.hasNext()) {
        it.next();
        if (!value.isArray() || it.name() != QLatin1String("length"))
            copy.setProperty(it.scriptName(), copyOf(it.value()));
    }
    return copy;
}

} // namespace

QScriptValue Utils::Script::plainCopy(const QScriptValue &value, bool &isOk)
{
    double room = cMostValues;
    isOk = isBounded(value, 0, room);
    return isOk ? copyOf(value) : QScriptValue();
}

bool Utils::Script::isOpenItem(const TCanvasItem *item, const QScriptEngine *engine)
{
    const TScriptRun *run = TScriptRun::of(engine);
    TPage *page = item ? item->canvas() : nullptr;
    return page && (!run || run->host().document()->pages().contains(page));
}

QVariant Utils::Script::plainVariant(const QScriptValue &value, bool *isOk)
{
    double room = cMostValues;
    const bool isFit = isBounded(value, 0, room);
    if (isOk)
        *isOk = isFit;
    return isFit ? value.toVariant() : QVariant();
}

QScriptValue Utils::Script::throwError(QScriptContext *context, int code, const QString &text)
{
    QScriptValue error = context->throwError(text.isEmpty() ? defaultText(code) : text);
    error.setProperty("code", code);
    return error;
}

namespace {

bool isAllowed(QScriptContext *context, const QString &path, const QString &whyNot)
{
    if (!whyNot.isEmpty())
        Utils::Script::throwError(context, Utils::Script::cWrongType, QStringLiteral("%1: %2").arg(path, whyNot));
    return whyNot.isEmpty();
}

} // namespace

bool Utils::Script::mayRead(QScriptContext *context, const QString &path)
{
    const TScriptRun *run = TScriptRun::of(context->engine());
    return !run || isAllowed(context, path, run->reach().whyNotRead(path));
}

bool Utils::Script::mayWrite(QScriptContext *context, const QString &path)
{
    const TScriptRun *run = TScriptRun::of(context->engine());
    return !run || isAllowed(context, path, run->writeRefusal(path));
}

bool Utils::Script::maySave(QScriptContext *context, const QString &path)
{
    const TScriptRun *run = TScriptRun::of(context->engine());
    return !run || isAllowed(context, path, run->saveRefusal(path));
}

void Utils::Script::refuseWriting(QScriptContext *context)
{
    if (context)
        throwError(context, cWrongType, TScriptRun::tr("This property can only be read."));
}

bool Utils::Script::hasArguments(QScriptContext *context, const QStringList &names)
{
    if (!context || context->argumentCount() >= names.size()) // without a context: called outside of scripts
        return true;
    const QString &missing = names.at(context->argumentCount());
    throwError(context, cWrongCount, TScriptRun::tr("The argument \"%1\" is missing.").arg(missing));
    return false;
}

QString Utils::Script::placeOf(QScriptContext *context)
{
    // the context of a native function knows no line, that of its caller does
    for (QScriptContext *at = context; at; at = at->parentContext()) {
        const QScriptContextInfo info(at);
        if (info.lineNumber() >= 0)
            return QStringLiteral("%1:%2").arg(QFileInfo(info.fileName()).fileName()).arg(info.lineNumber());
    }
    return QString();
}

QScriptValue Utils::Script::scriptWarning(QScriptContext *context, const QString &text)
{
    if (TScriptRun *run = TScriptRun::of(context->engine()))
        run->warn(placeOf(context), text);
    return context->engine()->undefinedValue();
}

bool Utils::Script::doScriptHistoryCommand(TCommand *command, QScriptContext *context, int flag)
{
    constexpr int cOwns = 1;
    TScriptRun *run = TScriptRun::of(context->engine());
    if (!command || !run || ((flag & cOwns) == 0 && command->isVoid()))
        return false;
    if (!run->host().history().push(command))
        return false;
    const QString place = placeOf(context);
    for (THistoryCommand *entry : command->historyCmdList())
        entry->addParam(QStringLiteral("script"), place, QString());
    if (const auto *partial = dynamic_cast<const ICommandRemarks *>(command)) {
        for (const QString &remark : partial->remarks())
            run->warn(place, remark);
    }
    run->breathe();
    return true;
}

ICanvasItem *Utils::Script::canvasItemFromScriptValue(const QScriptValue &value)
{
    if (const auto *wrapper = qobject_cast<TCanvasItemWrapper *>(value.toQObject()))
        return wrapper->item();
    if (value.isObject() && !value.isVariant()) // arrays can be too long to be converted
        return nullptr;
    const QVariant variant = value.toVariant();
    if (variant.canConvert<TCanvasItem *>())
        return variant.value<TCanvasItem *>();
    const QUuid id = variant.canConvert<QUuid>() ? variant.toUuid() : QUuid();
    const TScriptRun *run = TScriptRun::of(value.engine());
    return run && !id.isNull() && run->host().document() ? run->host().document()->item(id) : nullptr;
}

QVariantList Utils::Script::contextToVariantList(QScriptContext *context)
{
    QVariantList list;
    for (int i = 0; i < context->argumentCount(); ++i) {
        const QScriptValue argument = context->argument(i);
        const ICanvasItem *item = canvasItemFromScriptValue(argument);
        list.append(item ? QVariant(item->uniqueId().toString()) : plainVariant(argument));
    }
    return list;
}
