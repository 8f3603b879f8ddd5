#pragma once

#include "TYrexDPLib.h"
#include "TYrexSpectrumCommand.h"
#include "TYrexSpectrumPlaces.h"
#include "TYrexVoidUnlessChanged.h"

#include <QVariant>

/// Edits the annotation of one peak of the items' current spectra. An automatic peak that gets a text is a manual one
/// from then on, so that runs of the chain keep it; taking the text away leaves it manual.
class TCmdYrexEditPeak : public TYrexVoidUnlessChanged<TYrexSpectrumCommand>
{
    Q_OBJECT

public:
    enum TField : qint32 { cAnnotation = 0 };

    /// `peakIndex` is a place in the list of peaks; an item whose spectrum has fewer is left out. `peakField` is a
    /// TField; any other does nothing. Other spectra than the current ones are told by `places`.
    TCmdYrexEditPeak(int peakIndex, int peakField, const QVariant &value, const TCanvasItemList &items,
                     const TYrexSpectrumPlaces &places = TYrexSpectrumPlaces());

    TScriptStep scriptStep() const override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    bool isApplicable(TCanvasYrexSpectrum *item) const override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    void swapAnnotation(TYrexDPLib::TYrexDPPeak &peak, int index);

    TYrexSpectrumPlaces fPlaces;
    qint32 fPeakIndex;
    qint32 fPeakField;
    QVector<QVariant> fValue; // by item: the new value, once done the old one
    QVector<qint32> fFlags;   // by item: those of the peak before
};
