#pragma once

#include "TYrexIntegrationRegions.h"
#include "TYrexSpectrumCommand.h"
#include "TYrexSpectrumPlaces.h"
#include "TYrexVoidUnlessChanged.h"

#include <QVector>

/// Makes a region of the items' current spectra the reference of the normalisation, and sets its value.
class TCmdYrexIntegralNormalize : public TYrexVoidUnlessChanged<TYrexSpectrumCommand>
{
    Q_OBJECT

public:
    /// `reference` is a place in the list of regions; a spectrum that has fewer is left as it is. A value of 0, or one
    /// that is no finite number, leaves the value as it is. Other spectra than the current ones are told by
    /// `places`.
    TCmdYrexIntegralNormalize(const TCanvasItemList &items, int reference, double value,
                              const TYrexSpectrumPlaces &places = TYrexSpectrumPlaces());

    TScriptStep scriptStep() const override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    bool isApplicable(TCanvasYrexSpectrum *item) const override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    TYrexSpectrumPlaces fPlaces;
    qint32 fReference;
    double fValue;
    QVector<TYrexIntegrationRegions> fOld; // by item: more than one region may have carried the flag
};
