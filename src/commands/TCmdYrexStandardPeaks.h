#pragma once

#include "TYrexPeakCopies.h"
#include "TYrexSpectrumCommand.h"
#include "TYrexSpectrumPlaces.h"
#include "TYrexVoidUnlessChanged.h"

/// Picks the peaks of spectra that have none, with the settings that a new chain has: downwards in transmittance, else
/// upwards.
class TCmdYrexStandardPeaks : public TYrexVoidUnlessChanged<TYrexSpectrumCommand>
{
    Q_OBJECT

public:
    TCmdYrexStandardPeaks(const TCanvasItemList &items, const TYrexSpectrumPlaces &places);

    TScriptStep scriptStep() const override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    bool isApplicable(TCanvasYrexSpectrum *item) const override { return fPlaces.spectrum(item); }
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    TYrexSpectrumPlaces fPlaces;
    QVector<TYrexPeakCopies> fPicked; // by item
};
