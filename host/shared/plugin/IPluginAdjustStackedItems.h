#pragma once

#include <QtPlugin>

class TCanvasItemList;

/// The stack options dialog. Found by its class name.
class IPluginAdjustStackedItems
{
public:
    virtual ~IPluginAdjustStackedItems() = default;
    virtual void adjustStackedItems(const TCanvasItemList &items) = 0;
};
