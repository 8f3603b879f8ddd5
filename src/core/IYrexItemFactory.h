#pragma once

#include "TYrexSpectrumList.h"

class ICanvas;
class ICanvasItem;

/// How converters make canvas items without knowing the canvas.
class IYrexItemFactory
{
public:
    virtual ~IYrexItemFactory() = default;
    /// A new item that owns the spectra, meant for the page `parent`, which may be null; the caller owns the item.
    virtual ICanvasItem *createSpectrumItem(const TYrexSpectrumList &spectra, ICanvas *parent) = 0;
    /// Hands more spectra over to an item of its making, which shows them as a stack from then on. A factory whose
    /// items take no more deletes them.
    virtual void addSpectra(ICanvasItem *, const TYrexSpectrumList &spectra) { qDeleteAll(spectra); }

    /// The factory of this process, or null where there is no canvas, as in a plain driver.
    static IYrexItemFactory *current();
    static void setCurrent(IYrexItemFactory *factory);
};
