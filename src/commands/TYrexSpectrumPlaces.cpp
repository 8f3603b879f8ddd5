#include "TYrexSpectrumPlaces.h"

#include "TCanvasYrexSpectrum.h"
#include "canvas/TCanvasItemList.h"

TYrexSpectrumPlaces::TYrexSpectrumPlaces(const TCanvasItemList &items)
{
    for (ICanvasItem *entry : items) {
        if (const TCanvasYrexSpectrum *item = yrexItem(entry))
            fIndices.insert(item, item->stack().current());
    }
}

TYrexSpectrum *TYrexSpectrumPlaces::spectrum(const TCanvasYrexSpectrum *item) const
{
    return item ? item->stack().at(index(item)) : nullptr;
}
