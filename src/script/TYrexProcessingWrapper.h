#pragma once

#include "TYrexProcParams.h"
#include "script/ScriptUtils.h"
#include "script/TWrapperTemplate.h"

#include <QScriptValue>
#include <QScriptable>

class QScriptEngine;

/// A processing chain, as scripts see it: a copy that setProcessing of a spectrum applies.
class TYrexProcessingWrapper : public TWrapperTemplate<TYrexProcParams>, protected QScriptable
{
    Q_OBJECT
    Q_PROPERTY(bool isValid READ isValid WRITE refuseWrite)
    Q_PROPERTY(QScriptValue stopProc READ stopProc WRITE setStopProc)
    Q_PROPERTY(QScriptValue actions READ actions WRITE setActions)
    Q_PROPERTY(QString objectName READ objectName SCRIPTABLE false)

public:
    explicit TYrexProcessingWrapper(const TYrexProcParams &params);

    /// Publishes the class; its constructor takes nothing, or the path of a template.
    static void install(QScriptEngine *engine);

    bool isValid() const;
    /// The place of the action with which a run ends; undefined lets it run to the end.
    QScriptValue stopProc() const;
    void setStopProc(const QScriptValue &place);
    /// The last place that runs.
    int lastAction() const;
    /// The chain as an array of objects with the keys of the actions.
    QScriptValue actions() const;
    void setActions(const QScriptValue &actions);

    /// Of what scripts may only read.
    template <class T>
    void refuseWrite(const T &)
    {
        Utils::Script::refuseWriting(context());
    }

public slots:
    QString toString() const;
    /// Switches all actions off.
    void setApplyNothing();
    /// Takes the path of a template, or of a chain as JSON. True, or an error with the reason.
    QScriptValue open();
    QScriptValue save();
    /// Takes the label or the number of an action, and an object with values of its keys: switches it on with those
    /// values. False when the chain has no such action.
    QScriptValue apply();
    /// The chain as JSON.
    QString toJSON() const;

private:
    QScriptValue fStop;
};
