#include "TYrexParamsCommand.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"

namespace {

QPair<int, int> unitsOf(const TCanvasYrexSpectrum &item)
{
    const TYrexSpectrum *spectrum = item.currentSpectrum();
    return spectrum ? qMakePair(spectrum->xUnits(), spectrum->yUnits()) : qMakePair(-1, -1);
}

} // namespace

void TYrexParamsCommand::doItem(TCanvasYrexSpectrum *item, int index)
{
    const QPair<int, int> before = unitsOf(*item);
    TYrexVoidUnlessChanged::doItem(item, index);
    if (unitsOf(*item) != before)
        showUnits(*item);
}

void TYrexParamsCommand::showUnits(TCanvasYrexSpectrum &item) const
{
    T1DYrexPlot *plot = item.activeYrexPlot();
    const TYrexSpectrum *spectrum = item.currentSpectrum();
    if (!plot || !spectrum)
        return;
    // the name of the unit changed, not the values: the scales keep their numbers, so that undo finds them again
    plot->relabelUnits(horzDir, spectrum->xUnits());
    plot->relabelUnits(vertDir, spectrum->yUnits());
    item.update();
}
