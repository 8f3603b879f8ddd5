#pragma once

#include "script/TStepKind.h"

#include <QScriptValue>
#include <QStringList>
#include <QVector>

class QScriptEngine;
class TCanvasItem;

/// Makes script objects of the classes that a plug-in gives to scripts.
class IScriptObjectFactory
{
public:
    virtual ~IScriptObjectFactory() = default;
    virtual QStringList classNames() const = 0;
    /// Publishes the constructors on an engine.
    virtual void install(QScriptEngine *engine) = 0;
    /// A new object of a class; undefined for a name that is not the factory's.
    virtual QScriptValue create(QScriptEngine *engine, const QString &className) = 0;
    /// The object of an item; undefined for items of other kinds.
    virtual QScriptValue wrap(QScriptEngine *, TCanvasItem *) { return QScriptValue(); }
    /// The steps that scripts can do with the plug-in's commands.
    virtual QVector<TStepKind> stepKinds() const { return {}; }
};
