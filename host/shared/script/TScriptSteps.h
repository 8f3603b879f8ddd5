#pragma once

#include "script/TStepKind.h"

#include <QPointer>
#include <QVector>

class QScriptContext;
class QScriptEngine;
class QScriptValue;
class TDocument;
class TScriptRun;

/// The global `steps`: a function for each kind of step that a user can do, so that what was done can be written down
/// and done again.
class TScriptSteps
{
public:
    explicit TScriptSteps(TScriptRun &run);
    ~TScriptSteps();
    TScriptSteps(const TScriptSteps &) = delete;
    TScriptSteps &operator=(const TScriptSteps &) = delete;

    /// Publishes the steps of the host and of all plug-ins on the run's engine.
    void install();
    const QVector<TStepKind> &kinds() const { return fKinds; }
    /// Closes what a script began and did not end.
    void closeGroups();

private:
    static QScriptValue begin(QScriptContext *context, QScriptEngine *engine);
    static QScriptValue end(QScriptContext *context, QScriptEngine *engine);
    static QScriptValue call(QScriptContext *context, QScriptEngine *engine);
    QScriptValue run(const TStepKind &kind, QScriptContext *context);

    TScriptRun &fRun;
    QVector<TStepKind> fKinds;
    QVector<QPointer<TDocument>> fGroups; // those in whose history a group was begun
};
