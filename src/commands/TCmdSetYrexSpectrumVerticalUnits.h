#pragma once

#include "TYrexSnapshot.h"
#include "TYrexUnitsCommand.h"

#include <vector>

/// Gives plots and all their spectra another y unit. A mere relabelling leaves the values; any other change runs the
/// start of each spectrum's chain anew.
class TCmdSetYrexSpectrumVerticalUnits : public TYrexUnitsCommand
{
    Q_OBJECT

public:
    /// `unit` is a unit code.
    TCmdSetYrexSpectrumVerticalUnits(int unit, const TCanvasItemList &items);

    TScriptStep scriptStep() const override;
    void doCommand(TCanvasItem *item, TBasePlot *plot) override;
    void undoCommand(TCanvasItem *item, TBasePlot *plot, int itemIndex, int plotIndex) override;

protected:
    void saveSpectra(TCanvasYrexSpectrum &item, int index) override;
    void restoreSpectra(TCanvasYrexSpectrum &item, int index) override;

private:
    std::vector<TYrexSnapshot> fSnapshots; // by item
};
