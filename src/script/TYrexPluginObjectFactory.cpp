#include "TYrexPluginObjectFactory.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexDPPeakWrapper.h"
#include "TYrexIntegralWrapper.h"
#include "TYrexIntegralsWrapper.h"
#include "TYrexPlugin.h"
#include "TYrexPluginWrapper.h"
#include "TYrexProcessingWrapper.h"
#include "TYrexSpectrumWrapper.h"
#include "YrexSteps.h"
#include "script/ScriptUtils.h"

namespace {

QScriptValue constructPlugin(QScriptContext *, QScriptEngine *engine)
{
    return engine->toScriptValue(new TYrexPluginWrapper(yrexPluginInstance()));
}

} // namespace

QStringList TYrexPluginObjectFactory::classNames() const
{
    return {"YREXPlugin", "ZarnuSpectrum", "ZarnuDPPeak", "ZarnuProcessing", "ZarnuIntegral", "ZarnuIntegrals"};
}

void TYrexPluginObjectFactory::install(QScriptEngine *engine)
{
    Utils::Script::registerCustomType<TYrexPluginWrapper>(engine, "YREXPlugin", constructPlugin, engine->newObject());
    TYrexSpectrumWrapper::install(engine);
    TYrexDPPeakWrapper::install(engine);
    TYrexProcessingWrapper::install(engine);
    TYrexIntegralWrapper::install(engine);
    TYrexIntegralsWrapper::install(engine);
}

QScriptValue TYrexPluginObjectFactory::create(QScriptEngine *engine, const QString &className)
{
    const bool isOwn = classNames().contains(className);
    return isOwn ? engine->globalObject().property(className).construct() : QScriptValue();
}

QScriptValue TYrexPluginObjectFactory::wrap(QScriptEngine *engine, TCanvasItem *item)
{
    TCanvasYrexSpectrum *spectrum = yrexItem(item);
    return spectrum ? engine->toScriptValue(new TYrexSpectrumWrapper(spectrum)) : QScriptValue();
}

QVector<TStepKind> TYrexPluginObjectFactory::stepKinds() const
{
    return yrexSteps();
}
