#pragma once

#include "TYrexSnapshot.h"
#include "TYrexUnitsCommand.h"

#include <vector>

/// Gives plots and all their spectra another y unit. A mere relabelling, from or to arbitrary, leaves the values; any
/// other change runs each spectrum's whole chain again, and the plot takes the unit with which that ends.
///
/// No unit is given that the chain would not give: items with a spectrum whose chain ends in another one, arbitrary
/// aside, are passed over.
class TCmdSetYrexSpectrumVerticalUnits : public TYrexUnitsCommand
{
    Q_OBJECT

public:
    /// `unit` is a unit code.
    TCmdSetYrexSpectrumVerticalUnits(int unit, const TCanvasItemList &items);

    /// Which of the items keep their unit, and in which units their chains end, in words for users; empty when all can
    /// get that unit. `isNone` becomes whether none can.
    static QString refusal(int unit, const TCanvasItemList &items, bool *isNone);

    bool cmdItemApplicable(TCanvasItem *item) const override;
    TScriptStep scriptStep() const override;
    void doCommand(TCanvasItem *item, TBasePlot *plot) override;
    void undoCommand(TCanvasItem *item, TBasePlot *plot, int itemIndex, int plotIndex) override;

protected:
    void saveSpectra(TCanvasYrexSpectrum &item, int index) override;
    void restoreSpectra(TCanvasYrexSpectrum &item, int index) override;

private:
    std::vector<TYrexSnapshot> fSnapshots; // by item
};
