#include "TCmdYrexEditOneParam.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexParamEdit.h"
#include "TYrexStepValues.h"
#include "history/THistoryCommand.h"

TCmdYrexEditOneParam::TCmdYrexEditOneParam(const TCanvasItemList &items, int id, const QString &value, bool currentOnly,
                                           bool selectionOnly)
    : TYrexParamsCommand(tr("Edit Parameter"), items)
    , fId(id)
    , fValue(value)
{
    setCurrentOnly(currentOnly);
    setSelectionOnly(selectionOnly);
}

TCmdYrexEditOneParam::TCmdYrexEditOneParam(const TCanvasItemList &items, int id, const QString &value, int specIndex)
    : TYrexParamsCommand(tr("Edit Parameter"), items)
    , fId(id)
    , fValue(value)
    , fSpecIndex(qMax(0, specIndex))
{
    setVoidFlag(specIndex < 0);
}

QVector<int> TCmdYrexEditOneParam::targetsIn(const TCanvasYrexSpectrum &item) const
{
    if (fSpecIndex == cByFamily)
        return TYrexParamsCommand::targetsIn(item);
    return item.stack().at(fSpecIndex) ? QVector<int>{fSpecIndex} : QVector<int>();
}

void TCmdYrexEditOneParam::applyToSpectrum(TCanvasYrexSpectrum *, int, TYrexSpectrum *spectrum, int)
{
    if (YrexParamEdit::set(*spectrum, fId, fValue))
        noteChange();
}

THistoryCommand *TCmdYrexEditOneParam::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexParamsCommand::makeItemHistory(item);
    if (fSpecIndex != cByFamily && item->isStacked())
        entry->addParam(tr("Spectrum"), fSpecIndex + 1, QString());
    entry->addParam(tr("Parameter"), QString::fromLatin1(TSpectrumParam::paramName(fId)), QString());
    entry->addParam(tr("Value"), fValue, QString());
    return entry;
}

TScriptStep TCmdYrexEditOneParam::scriptStep() const
{
    TScriptStep step("setParameter");
    step.on(items()).with("parameter", YrexParamEdit::toldName(fId)).with("value", fValue);
    return YrexStepValues::withSpectra(step, targets(), items());
}
