#include "MakerValues.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"

TCanvasYrexSpectrum &firstOf(const TCanvasItemList &items)
{
    return *yrexItem(items.first());
}

int countOf(const TCanvasItemList &items)
{
    return firstOf(items).stack().count();
}

int anyIndex(TDice &dice, const TCanvasItemList &items)
{
    return dice.from(-1, countOf(items));
}

TRange anyRange(TDice &dice, const TCanvasItemList &items)
{
    const T1DYrexPlot *plot = firstOf(items).activeYrexPlot();
    const TRange full = plot->horzAxis().getFullScale().sorted();
    const double margin = 0.2 * full.span();
    return TRange(dice.real(full.a - margin, full.b + margin), dice.real(full.a - margin, full.b + margin)).sorted();
}
