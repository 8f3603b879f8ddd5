#include "TCmdYrexDeletePeaks.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexStepValues.h"
#include "history/THistoryCommand.h"

TCmdYrexDeletePeaks::TCmdYrexDeletePeaks(const TCanvasItemList &items, const QSet<QUuid> &ids,
                                         const TYrexSpectrumPlaces &places)
    : TYrexVoidUnlessChanged(tr("Delete Peaks"), items)
    , fPlaces(places.orCurrentOf(items))
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

TScriptStep TCmdYrexDeletePeaks::scriptStep() const
{
    QVector<QVector<int>> found;
    for (ICanvasItem *item : items()) {
        found.append(QVector<int>());
        const TYrexSpectrum *spectrum = fPlaces.spectrum(yrexItem(item));
        for (int i = 0; spectrum && i < spectrum->peaks().size(); ++i) {
            const QUuid id = spectrum->peaks().at(i)->id;
            if (fPeakIds.contains(id) && TYrexDPLib::indexOfId(spectrum->peaks(), id) == i)
                found.last().append(i);
        }
    }
    TScriptStep step("deletePeaks");
    step.on(items()).with("peaks", YrexStepValues::byItem(found));
    return YrexStepValues::withSpectrum(step, fPlaces, items());
}
