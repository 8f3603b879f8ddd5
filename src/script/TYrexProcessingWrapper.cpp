#include "TYrexProcessingWrapper.h"

#include "TYrexChainFile.h"
#include "TYrexChainJson.h"
#include "TYrexProcDefaults.h"
#include "script/ScriptUtils.h"
#include "script/TScriptRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QScriptContext>

using namespace Utils::Script;

namespace {

QScriptValue construct(QScriptContext *context, QScriptEngine *engine)
{
    if (context->argumentCount() > 1)
        return throwError(context, cWrongCount);
    TYrexProcParams params;
    if (context->argumentCount() == 1) {
        if (!context->argument(0).isString())
            return throwError(context, cWrongType);
        QString error;
        QStringList warnings;
        const QString path = TScriptRun::of(engine)->absolutePath(context->argument(0).toString());
        if (!mayRead(context, path))
            return engine->undefinedValue();
        if (!TYrexChainFile::load(path, params, error, warnings))
            return throwError(context, cWrongType, QStringLiteral("%1: %2").arg(path, error));
    }
    return engine->toScriptValue(new TYrexProcessingWrapper(params));
}

QByteArray jsonOf(const QVariant &actions)
{
    return QJsonDocument(QJsonArray::fromVariantList(actions.toList())).toJson(QJsonDocument::Compact);
}

} // namespace

TYrexProcessingWrapper::TYrexProcessingWrapper(const TYrexProcParams &params)
    : TWrapperTemplate(std::make_unique<TYrexProcParams>(params))
{
}

void TYrexProcessingWrapper::install(QScriptEngine *engine)
{
    registerCustomType<TYrexProcessingWrapper>(engine, "ZarnuProcessing", construct, engine->newObject());
}

bool TYrexProcessingWrapper::isValid() const
{
    return wrapped();
}

QScriptValue TYrexProcessingWrapper::stopProc() const
{
    return fStop;
}

void TYrexProcessingWrapper::setStopProc(const QScriptValue &place)
{
    const bool isPlace = place.isNumber() && place.toInt32() >= 0 && place.toInt32() < wrapped()->actionCount();
    if (isPlace || place.isUndefined() || place.isNull())
        fStop = isPlace ? place : QScriptValue();
    else if (context())
        throwError(context(), place.isNumber() ? cOutOfRange : cWrongType);
}

int TYrexProcessingWrapper::lastAction() const
{
    const int last = wrapped()->actionCount() - 1;
    return fStop.isNumber() ? qMin(fStop.toInt32(), last) : last;
}

QScriptValue TYrexProcessingWrapper::actions() const
{
    const QByteArray json = TYrexChainJson::toJson(wrapped()->actions());
    return engine()->toScriptValue(QJsonDocument::fromJson(json).array().toVariantList());
}

void TYrexProcessingWrapper::setActions(const QScriptValue &actions)
{
    if (!context())
        return;
    QString error;
    QStringList warnings;
    bool isFit = false;
    const QVariant list = plainVariant(actions, &isFit);
    if (!isFit || !actions.isArray())
        throwError(context(), cWrongType);
    else if (!TYrexChainJson::parse(jsonOf(list), *wrapped(), error, warnings))
        throwError(context(), cWrongType, error);
    for (const QString &warning : qAsConst(warnings))
        scriptWarning(context(), warning);
}

QString TYrexProcessingWrapper::toString() const
{
    QStringList applied;
    for (int i = 0; i < wrapped()->actionCount(); ++i) {
        if (wrapped()->isApplied(i))
            applied.append(TYrexProcParams::label(wrapped()->actionId(i)));
    }
    return QStringLiteral("Processing (%1)").arg(applied.isEmpty() ? tr("None Applied") : applied.join(", "));
}

void TYrexProcessingWrapper::setApplyNothing()
{
    wrapped()->setApplyNothing();
}

QScriptValue TYrexProcessingWrapper::open()
{
    if (argumentCount() != 1)
        return throwError(context(), cWrongCount);
    if (!argument(0).isString())
        return throwError(context(), cWrongType);
    const QString path = TScriptRun::of(engine())->absolutePath(argument(0).toString());
    QString error;
    QStringList warnings;
    if (!mayRead(context(), path))
        return false;
    if (!TYrexChainFile::load(path, *wrapped(), error, warnings))
        return throwError(context(), cWrongType, QStringLiteral("%1: %2").arg(path, error));
    for (const QString &warning : qAsConst(warnings))
        scriptWarning(context(), warning);
    return true;
}

QScriptValue TYrexProcessingWrapper::save()
{
    if (argumentCount() != 1)
        return throwError(context(), cWrongCount);
    if (!argument(0).isString())
        return throwError(context(), cWrongType);
    const QString path = TScriptRun::of(engine())->absolutePath(argument(0).toString());
    if (!mayWrite(context(), path))
        return false;
    QString error;
    if (!TYrexChainFile::save(path, *wrapped(), &error))
        return throwError(context(), cWrongType, tr("%1: the file cannot be written: %2.").arg(path, error));
    return true;
}

QScriptValue TYrexProcessingWrapper::apply()
{
    if (argumentCount() < 1 || argumentCount() > 2)
        return throwError(context(), cWrongCount);
    const QScriptValue which = argument(0);
    const bool isPlain = argument(1).isObject() && !argument(1).isQObject() && !argument(1).isArray();
    if (!which.isNumber() && !which.isString())
        return throwError(context(), cWrongType);
    if (argumentCount() == 2 && !isPlain)
        return throwError(context(), cWrongType, tr("The keys of the action are expected as an object: {key: value}"));
    bool isFit = false;
    const QVariantMap values = plainVariant(argument(1), &isFit).toMap();
    if (!isFit)
        return throwError(context(), cWrongType);
    QVariantList chain = QJsonDocument::fromJson(TYrexChainJson::toJson(wrapped()->actions())).array().toVariantList();
    for (int i = 0; i < chain.size(); ++i) {
        const int id = wrapped()->actionId(i);
        if (which.isNumber() ? id != which.toInt32() : TYrexProcParams::label(id) != which.toString())
            continue;
        QVariantMap map = chain.at(i).toMap();
        for (auto it = values.constBegin(); it != values.constEnd(); ++it)
            map.insert(it.key(), it.value());
        map.insert("apply", true);
        chain[i] = map;
        QString error;
        QStringList warnings;
        if (!TYrexChainJson::parse(jsonOf(chain), *wrapped(), error, warnings))
            return throwError(context(), cWrongType, error);
        QStringList known{"apply", "yrexProcOpId"};
        for (const TYrexProcKey &key : TYrexProcDefaults::keysOf(id, true))
            known.append(key.fKey);
        for (const QString &key : values.keys()) {
            if (!known.contains(key))
                scriptWarning(
                    context(),
                    tr("%1 has no key \"%2\"; it has %3").arg(TYrexProcParams::label(id), key, known.join(", ")));
        }
        return true;
    }
    QStringList labels;
    for (int i = 0; i < chain.size(); ++i)
        labels.append(TYrexProcParams::label(wrapped()->actionId(i)));
    return throwError(context(), cWrongType,
                      tr("The chain has no action %1; it has %2").arg(which.toString(), labels.join(", ")));
}

QString TYrexProcessingWrapper::toJSON() const
{
    return QString::fromUtf8(TYrexChainJson::toJson(wrapped()->actions()));
}
