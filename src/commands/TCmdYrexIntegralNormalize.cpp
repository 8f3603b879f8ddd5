#include "TCmdYrexIntegralNormalize.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexStepValues.h"
#include "history/THistoryCommand.h"

#include <cmath>

TCmdYrexIntegralNormalize::TCmdYrexIntegralNormalize(const TCanvasItemList &items, int reference, double value,
                                                     const TYrexSpectrumPlaces &places)
    : TYrexVoidUnlessChanged(tr("Normalize Integrals"), items)
    , fPlaces(places.orCurrentOf(items))
    , fReference(reference)
    , fValue(std::isfinite(value) ? value : 0.0)
    , fOld(TCanvasItemsCommand::items().size())
{
}

bool TCmdYrexIntegralNormalize::isApplicable(TCanvasYrexSpectrum *item) const
{
    const TYrexSpectrum *spectrum = fPlaces.spectrum(item);
    return spectrum && fReference >= 0 && fReference < spectrum->integrals().count();
}

void TCmdYrexIntegralNormalize::doItem(TCanvasYrexSpectrum *item, int index)
{
    TYrexIntegrationRegions &integrals = fPlaces.spectrum(item)->integrals();
    fOld[index] = integrals;
    integrals.setNormValue(fValue);
    if (integrals.setReferenceIndex(fReference) != fReference || integrals.normValue() != fOld.at(index).normValue())
        noteChange();
    item->update();
}

void TCmdYrexIntegralNormalize::undoItem(TCanvasYrexSpectrum *item, int index)
{
    fPlaces.spectrum(item)->integrals().assign(fOld.at(index));
    item->update();
}

THistoryCommand *TCmdYrexIntegralNormalize::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    const TYrexSpectrum *spectrum = fPlaces.spectrum(item);
    entry->addParam(tr("Normalization"), spectrum ? spectrum->integrals().normValue() : fValue, QString());
    entry->addParam(tr("Reference"), fReference + 1, QString());
    return entry;
}

TScriptStep TCmdYrexIntegralNormalize::scriptStep() const
{
    TScriptStep step("normalizeIntegrals");
    step.on(items()).with("integral", fReference);
    if (fValue != 0.0)
        step.with("norm", fValue);
    return YrexStepValues::withSpectrum(step, fPlaces, items());
}
