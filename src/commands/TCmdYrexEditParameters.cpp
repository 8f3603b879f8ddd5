#include "TCmdYrexEditParameters.h"

#include "TYrexParamEdit.h"
#include "TYrexStepValues.h"
#include "history/THistoryCommand.h"
#include "params/TSpectrumParam.h"

TCmdYrexEditParameters::TCmdYrexEditParameters(const TCanvasItemList &items, const QMap<int, QString> &values)
    : TYrexParamsCommand(tr("Edit Parameters"), items)
    , fValues(values)
{
}

void TCmdYrexEditParameters::applyToSpectrum(TCanvasYrexSpectrum *, int, TYrexSpectrum *spectrum, int)
{
    for (auto it = fValues.constBegin(); it != fValues.constEnd(); ++it) {
        if (YrexParamEdit::set(*spectrum, it.key(), it.value()))
            noteChange();
    }
}

THistoryCommand *TCmdYrexEditParameters::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexParamsCommand::makeItemHistory(item);
    for (auto it = fValues.constBegin(); it != fValues.constEnd(); ++it) {
        entry->addParam(tr("Parameter"), QString::fromLatin1(TSpectrumParam::paramName(it.key())), QString());
        entry->addParam(tr("Value"), it.value(), QString());
    }
    return entry;
}

TScriptStep TCmdYrexEditParameters::scriptStep() const
{
    QVariantMap values;
    for (auto it = fValues.constBegin(); it != fValues.constEnd(); ++it)
        values.insert(YrexParamEdit::toldName(it.key()), it.value());
    return YrexStepValues::withSpectra(TScriptStep("setParameters").on(items()).with("values", values), targets(),
                                       items());
}
