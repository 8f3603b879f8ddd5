#include "TYrexSpectrumRef.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"

TYrexSpectrumRef::TYrexSpectrumRef(TCanvasYrexSpectrum *item, int index)
    : fItem(item)
    , fIndex(index)
{
}

TCanvasYrexSpectrum *TYrexSpectrumRef::item() const
{
    return yrexItem(fItem.get());
}

int TYrexSpectrumRef::index() const
{
    const TCanvasYrexSpectrum *of = item();
    if (!of)
        return -1;
    return fIndex >= 0 && fIndex < of->stack().count() ? fIndex : of->stack().current();
}

TYrexSpectrum *TYrexSpectrumRef::spectrum() const
{
    const TCanvasYrexSpectrum *of = item();
    return of ? of->stack().at(index()) : nullptr;
}

TYrexSpectrumRef TYrexSpectrumRef::fixed() const
{
    return TYrexSpectrumRef(item(), index());
}

int TYrexSpectrumRef::shownXUnits() const
{
    const T1DYrexPlot *plot = item() ? item()->activeYrexPlot() : nullptr;
    const TYrexSpectrum *of = spectrum();
    return plot ? plot->xUnits() : of ? of->xUnits() : int(cUnitArbitrary);
}

void TYrexSpectrumRef::refresh() const
{
    if (!item())
        return;
    item()->refreshAxes();
    item()->update();
}
