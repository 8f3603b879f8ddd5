#pragma once

#include "canvas/TCanvasItem.h"

/// What tables, docks and script wrappers need of any kind of spectrum item.
class TCanvasBaseSpectrum : public TCanvasItem
{
public:
    using TCanvasItem::TCanvasItem;
};
