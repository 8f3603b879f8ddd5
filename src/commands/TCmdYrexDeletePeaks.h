#pragma once

#include "TYrexPeakCopies.h"
#include "TYrexSpectrumCommand.h"
#include "TYrexSpectrumPlaces.h"
#include "TYrexVoidUnlessChanged.h"

#include <QSet>
#include <QUuid>

/// Deletes peaks of the items' current spectra.
class TCmdYrexDeletePeaks : public TYrexVoidUnlessChanged<TYrexSpectrumCommand>
{
    Q_OBJECT

public:
    /// Ids that a spectrum has not are passed over. Other spectra than the current ones are told by `places`.
    TCmdYrexDeletePeaks(const TCanvasItemList &items, const QSet<QUuid> &ids,
                        const TYrexSpectrumPlaces &places = TYrexSpectrumPlaces());

    TScriptStep scriptStep() const override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    bool isApplicable(TCanvasYrexSpectrum *item) const override { return fPlaces.spectrum(item); }
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    TYrexSpectrumPlaces fPlaces;
    QVector<TYrexPeakCopies> fSavedPeaks; // by item
    QSet<QUuid> fPeakIds;
};
