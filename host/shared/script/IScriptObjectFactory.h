#pragma once

#include <QScriptValue>
#include <QStringList>

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
};
