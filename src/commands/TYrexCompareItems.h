#pragma once

#include "ui/TBaseCompareItems.h"

class TCanvasYrexSpectrum;
class TYrexPlugin;

/// Shows the spectra of several items in one plot.
class TYrexCompareItems : public TBaseCompareItems
{
public:
    explicit TYrexCompareItems(TYrexPlugin *plugin)
        : fPlugin(plugin)
    {
    }

    int availableFlags() const override { return stackedPlotAvailComparisonFlags; }
    TCanvasItem *compare(const TCanvasItemList &items, int flags) override;

private:
    static void normaliseHeights(TCanvasYrexSpectrum &item);

    TYrexPlugin *fPlugin;
};
