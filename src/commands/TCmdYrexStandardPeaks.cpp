#include "TCmdYrexStandardPeaks.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexPeakPicking.h"
#include "TYrexStepValues.h"
#include "TYrexUnits.h"
#include "history/THistoryCommand.h"

namespace {

constexpr double cSensitivity = 0.5;
constexpr int cMostPeaks = 1000;

bool pointsDown(const TYrexSpectrum &spectrum)
{
    return spectrum.yUnits() == cUnitTransmittance || spectrum.yUnits() == cUnitPercentTransmittance;
}

} // namespace

TCmdYrexStandardPeaks::TCmdYrexStandardPeaks(const TCanvasItemList &items, const TYrexSpectrumPlaces &places)
    : TYrexVoidUnlessChanged(tr("Force Standard Peak Picking"), items)
    , fPlaces(places)
    , fPicked(TCanvasItemsCommand::items().size())
{
}

void TCmdYrexStandardPeaks::doItem(TCanvasYrexSpectrum *item, int index)
{
    TYrexSpectrum &spectrum = *fPlaces.spectrum(item);
    if (!spectrum.peaks().isEmpty())
        return;
    if (fPicked.at(index).isEmpty()) {
        TYrexPeakPicking::autoPeakPicking(
            spectrum, {{cKeyOpId, int(cProcAutoPeakPicking)},
                       {cKeyApply, true},
                       {"yrexstdppsensitivity", cSensitivity},
                       {"yrexstdppmaxnbrpeaks", cMostPeaks},
                       {"yrexstdpppsign", int(pointsDown(spectrum) ? cPeaksDownwards : cPeaksUpwards)}});
        fPicked[index] = YrexPeakCopies::copyOf(spectrum.peaks());
    } else {
        YrexPeakCopies::put(fPicked.at(index), spectrum.peaks());
    }
    if (!spectrum.peaks().isEmpty())
        noteChange();
    item->refreshAxes();
    item->update();
}

void TCmdYrexStandardPeaks::undoItem(TCanvasYrexSpectrum *item, int index)
{
    if (!fPicked.at(index).isEmpty())
        TYrexDPLib::deleteAllPeaks(fPlaces.spectrum(item)->peaks());
    item->refreshAxes();
    item->update();
}

THistoryCommand *TCmdYrexStandardPeaks::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    entry->addParam(tr("Zarnu Spectrum"), item->uniqueId().toString(), QString());
    entry->addParam("sensitivity", cSensitivity, QString());
    entry->addParam("maxnbrpeaks", cMostPeaks, QString());
    entry->addParam("peakssign", pointsDown(*fPlaces.spectrum(item)) ? tr("Downwards") : tr("Upwards"), QString());
    return entry;
}

TScriptStep TCmdYrexStandardPeaks::scriptStep() const
{
    return YrexStepValues::withSpectrum(TScriptStep("pickStandardPeaks").on(items()), fPlaces, items());
}
