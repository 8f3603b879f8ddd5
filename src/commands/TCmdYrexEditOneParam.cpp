#include "TCmdYrexEditOneParam.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexParamEdit.h"
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

void TCmdYrexEditOneParam::applyToTargets(TCanvasYrexSpectrum *item, int index)
{
    if (fSpecIndex == cByFamily)
        TYrexParamsCommand::applyToTargets(item, index);
    else if (TYrexSpectrum *spectrum = item->stack().at(fSpecIndex))
        applyToSpectrum(item, index, spectrum, fSpecIndex);
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
