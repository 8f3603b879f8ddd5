#pragma once

#include "TYrexPeakCopies.h"
#include "TYrexSpectrumCommand.h"
#include "TYrexSpectrumPlaces.h"
#include "TYrexVoidUnlessChanged.h"

/// Adds one peak to the current spectrum of the main item, or deletes those that stand at one place.
class TCmdYrexPeakByPeak : public TYrexVoidUnlessChanged<TYrexSpectrumCommand>
{
    Q_OBJECT

public:
    enum TAction : qint32 { cAdd = 0, cDelete = 1 };

    /// `action` is a TAction; any other does nothing. `snapToPeak` tells how the place was found, and is
    /// kept. Another spectrum than the current one is told by `places`.
    TCmdYrexPeakByPeak(const TCanvasItemList &items, const TYrexDPLib::TYrexDPPeak &peak, int action, bool snapToPeak,
                       const TYrexSpectrumPlaces &places = TYrexSpectrumPlaces());

    TScriptStep scriptStep() const override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    bool isApplicable(TCanvasYrexSpectrum *item) const override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;
    bool snapToPeak() const { return fSnapToPeak; }

private:
    TYrexSpectrumPlaces fPlaces;
    TYrexPeakCopies fSavedPeaks;
    TYrexDPLib::TYrexDPPeak fPeak;
    qint32 fAction;
    bool fSnapToPeak;
};
