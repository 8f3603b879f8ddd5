#include "TCmdYrexDeletePeaks.h"

#include "TCanvasYrexSpectrum.h"
#include "history/THistoryCommand.h"

TCmdYrexDeletePeaks::TCmdYrexDeletePeaks(const TCanvasItemList &items, const QSet<QUuid> &ids)
    : TYrexVoidUnlessChanged(tr("Delete Peaks"), items)
    , fPlaces(items)
    , fSavedPeaks(TCanvasItemsCommand::items().size())
    , fPeakIds(ids)
{
}

void TCmdYrexDeletePeaks::doItem(TCanvasYrexSpectrum *item, int index)
{
    TYrexDPLib::TYrexDPPeakList &peaks = fPlaces.spectrum(item)->peaks();
    fSavedPeaks[index] = YrexPeakCopies::copyOf(peaks);
    for (const QUuid &id : qAsConst(fPeakIds)) {
        const int place = TYrexDPLib::indexOfId(peaks, id);
        if (place < 0)
            continue;
        delete peaks.takeAt(place);
        noteChange();
    }
    item->update();
}

void TCmdYrexDeletePeaks::undoItem(TCanvasYrexSpectrum *item, int index)
{
    YrexPeakCopies::put(fSavedPeaks.at(index), fPlaces.spectrum(item)->peaks());
    item->update();
}

THistoryCommand *TCmdYrexDeletePeaks::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    for (const TYrexDPLib::TYrexDPPeak &peak : fSavedPeaks.value(items().indexOf(item))) {
        if (fPeakIds.contains(peak.id))
            YrexPeakCopies::tell(*entry, peak, *item, fPlaces.index(item));
    }
    return entry;
}
