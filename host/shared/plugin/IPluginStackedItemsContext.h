#pragma once

#include <QtPlugin>

class IStackedItemCtx;
class TCanvasItem;

/// The stack of stacked items.
class IPluginStackedItemsContext
{
public:
    virtual ~IPluginStackedItemsContext() = default;
    /// The item owns it; null for an item of another type.
    virtual IStackedItemCtx *stackedContext(TCanvasItem *item) = 0;
};

#define cIPluginStackedItemsContextIID "com.dornveld.kelmora-qt.IPluginStackedItemsContext/1.0"
Q_DECLARE_INTERFACE(IPluginStackedItemsContext, cIPluginStackedItemsContextIID)
