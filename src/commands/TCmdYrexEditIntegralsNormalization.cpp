#include "TCmdYrexEditIntegralsNormalization.h"

#include "TCanvasYrexSpectrum.h"
#include "history/THistoryCommand.h"

#include <cmath>

TCmdYrexEditIntegralsNormalization::TCmdYrexEditIntegralsNormalization(const TCanvasItemList &items, double value)
    : TYrexVoidUnlessChanged(tr("Change Normalization"), items)
    , fNormValue(std::isfinite(value) ? value : 0.0)
    , fOldValues(TCanvasItemsCommand::items().size())
{
    setMergeableFlag(true);
}

void TCmdYrexEditIntegralsNormalization::doItem(TCanvasYrexSpectrum *item, int index)
{
    QVector<double> &old = fOldValues[index];
    old.clear();
    for (TYrexSpectrum *spectrum : item->spectra()) {
        TYrexIntegrationRegions &integrals = spectrum->integrals();
        old.append(integrals.normValue());
        integrals.setNormValue(fNormValue);
        if (integrals.normValue() != old.last())
            noteChange();
    }
    item->update();
}

void TCmdYrexEditIntegralsNormalization::undoItem(TCanvasYrexSpectrum *item, int index)
{
    const QVector<double> &old = fOldValues.at(index);
    for (int i = 0; i < qMin(old.size(), item->stack().count()); ++i)
        item->stack().at(i)->integrals().setNormValue(old.at(i));
    item->update();
}

THistoryCommand *TCmdYrexEditIntegralsNormalization::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    for (int i = 0; i < item->stack().count(); ++i) {
        const QString name = item->isStacked() ? tr("#%1 Normalization Factor").arg(i + 1) : tr("Normalization Factor");
        entry->addParam(name, fNormValue, QString());
    }
    return entry;
}

TScriptStep TCmdYrexEditIntegralsNormalization::scriptStep() const
{
    return TScriptStep("setIntegralNorm").on(items()).with("norm", fNormValue);
}
