#include "TCmdYrexPeakByPeak.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexStepValues.h"
#include "history/THistoryCommand.h"

TCmdYrexPeakByPeak::TCmdYrexPeakByPeak(const TCanvasItemList &items, const TYrexDPLib::TYrexDPPeak &peak, int action,
                                       bool snapToPeak, const TYrexSpectrumPlaces &places)
    : TYrexVoidUnlessChanged(action == cAdd ? tr("Add Peak") : tr("Delete Peak"), items)
    , fPlaces(places.orCurrentOf(items))
    , fPeak(peak)
    , fAction(action)
    , fSnapToPeak(snapToPeak)
{
    if (const TYrexSpectrum *spectrum = fPlaces.spectrum(mainItem()))
        fSavedPeaks = YrexPeakCopies::copyOf(spectrum->peaks());
}

bool TCmdYrexPeakByPeak::isApplicable(TCanvasYrexSpectrum *item) const
{
    return item == mainItem() && fPlaces.spectrum(mainItem());
}

void TCmdYrexPeakByPeak::doItem(TCanvasYrexSpectrum *item, int)
{
    TYrexDPLib::TYrexDPPeakList &peaks = fPlaces.spectrum(item)->peaks();
    if (fAction == cAdd) {
        peaks.append(new TYrexDPLib::TYrexDPPeak(fPeak));
        noteChange();
    }
    for (int i = peaks.size() - 1; fAction == cDelete && i >= 0; --i) {
        if (!YrexPeakCopies::samePeak(*peaks.at(i), fPeak))
            continue;
        delete peaks.takeAt(i);
        noteChange();
    }
}

void TCmdYrexPeakByPeak::undoItem(TCanvasYrexSpectrum *item, int)
{
    YrexPeakCopies::put(fSavedPeaks, fPlaces.spectrum(item)->peaks());
    item->update();
}

THistoryCommand *TCmdYrexPeakByPeak::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    YrexPeakCopies::tell(*entry, fPeak, *item, fPlaces.index(item));
    return entry;
}

TScriptStep TCmdYrexPeakByPeak::scriptStep() const
{
    const TCanvasItemList item{mainItem()};
    const TYrexSpectrum *spectrum = fPlaces.spectrum(mainItem());
    if (!spectrum || (fAction != cAdd && fAction != cDelete))
        return TScriptStep();
    if (fAction == cAdd) {
        TScriptStep step("addPeak");
        step.on(item).with("point", fPeak.position).with("height", fPeak.intensity);
        if (fPeak.width != 0.0)
            step.with("width", fPeak.width);
        if (!fPeak.positive)
            step.with("upwards", false);
        if (!fPeak.annotation.isNull())
            step.with("annotation", fPeak.annotation);
        return YrexStepValues::withSpectrum(step, fPlaces, item);
    }
    QVariantList found;
    for (int i = 0; i < spectrum->peaks().size(); ++i) {
        if (YrexPeakCopies::samePeak(*spectrum->peaks().at(i), fPeak))
            found.append(i);
    }
    return YrexStepValues::withSpectrum(TScriptStep("deletePeaks").on(item).with("peaks", found), fPlaces, item);
}
