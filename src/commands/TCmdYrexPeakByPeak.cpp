#include "TCmdYrexPeakByPeak.h"

#include "TCanvasYrexSpectrum.h"
#include "history/THistoryCommand.h"

TCmdYrexPeakByPeak::TCmdYrexPeakByPeak(const TCanvasItemList &items, const TYrexDPLib::TYrexDPPeak &peak, int action,
                                       bool snapToPeak)
    : TYrexVoidUnlessChanged(action == cAdd ? tr("Add Peak") : tr("Delete Peak"), items)
    , fPlaces(items)
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
