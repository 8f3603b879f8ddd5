#pragma once

#include "TYrexUnitsCommand.h"

#include <QString>

/// Shows plots along x in another unit. The values of the spectra stay; the current spectrum gets the unit. Items
/// with a spectrum whose range spans zero are passed over where the units are converted: zero is at no place then.
class TCmdSetYrexSpectrumHorizontalUnits : public TYrexUnitsCommand
{
    Q_OBJECT

public:
    /// `unit` is a unit code; `useOriginal` takes the axis' limits from the data as they were read.
    TCmdSetYrexSpectrumHorizontalUnits(int unit, const TCanvasItemList &items, bool useOriginal = false);

    /// Whether an item is passed over for that unit.
    static bool spansZero(const TCanvasYrexSpectrum &item, int unit);

    bool cmdItemApplicable(TCanvasItem *item) const override;
    TScriptStep scriptStep() const override;
    void doCommand(TCanvasItem *item, TBasePlot *plot) override;
    void undoCommand(TCanvasItem *item, TBasePlot *plot, int itemIndex, int plotIndex) override;

protected:
    void saveSpectra(TCanvasYrexSpectrum &item, int index) override;
    void restoreSpectra(TCanvasYrexSpectrum &item, int index) override;

private:
    struct TBefore
    {
        int fIndex = -1; // of the spectrum
        int fXUnits = 0;
        QString fText; // of the parameter, where there is one
        bool fEdited = false;
    };

    QVector<TBefore> fBefore; // by item
    bool fUseOriginal;
};
