#pragma once

#include "canvas/TCanvasItem.h"
#include "canvas/TSecurePtr.h"

class TCanvasYrexSpectrum;
class TYrexSpectrum;

/// A spectrum of an item by its place in the stack, or the item's active one. It does not keep the item alive.
class TYrexSpectrumRef
{
public:
    static constexpr int cActive = -1;

    TYrexSpectrumRef() = default;
    explicit TYrexSpectrumRef(TCanvasYrexSpectrum *item, int index = cActive);

    /// Null once the item is deleted.
    TCanvasYrexSpectrum *item() const;
    /// The spectrum at the index, where there is one, else the active one; null without an item.
    TYrexSpectrum *spectrum() const;
    /// Its index; -1 without a spectrum.
    int index() const;
    /// The same with the index that it has now, for what has to find it again.
    TYrexSpectrumRef fixed() const;
    /// The horizontal unit in which the item shows it.
    int shownXUnits() const;
    /// Draws the item anew after its data changed.
    void refresh() const;

private:
    TSecurePtr<TCanvasItem> fItem;
    int fIndex = cActive;
};
