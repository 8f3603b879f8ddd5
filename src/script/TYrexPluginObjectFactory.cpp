#include "TYrexPluginObjectFactory.h"

QStringList TYrexPluginObjectFactory::classNames() const
{
    return {"YREXPlugin", "ZarnuSpectrum", "ZarnuDPPeak", "ZarnuProcessing", "ZarnuIntegral", "ZarnuIntegrals"};
}

void TYrexPluginObjectFactory::install(QScriptEngine *) {}

QScriptValue TYrexPluginObjectFactory::create(QScriptEngine *, const QString &)
{
    return QScriptValue();
}
