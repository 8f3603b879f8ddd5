#pragma once

#include "script/IScriptObjectFactory.h"

/// Makes the script objects of the module's classes.
class TYrexPluginObjectFactory : public IScriptObjectFactory
{
public:
    QStringList classNames() const override;
    void install(QScriptEngine *engine) override;
    QScriptValue create(QScriptEngine *engine, const QString &className) override;
    QScriptValue wrap(QScriptEngine *engine, TCanvasItem *item) override;
    QVector<TStepKind> stepKinds() const override;
};
