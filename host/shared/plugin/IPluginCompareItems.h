#pragma once

#include <QtPlugin>

class TCanvasItem;
class TCanvasItemList;

/// Comparison of items in one plot.
class IPluginCompareItems
{
public:
    virtual ~IPluginCompareItems() = default;
    /// The ways of comparing that the plug-in offers, as bits.
    virtual int availableFlags() const = 0;
    /// A new item without a page, which the caller owns; null for items that cannot be compared.
    virtual TCanvasItem *compare(const TCanvasItemList &items, int flags) = 0;
};

#define cIPluginCompareItemsIID "com.dornveld.kelmora-qt.IPluginCompareItems/1.0"
Q_DECLARE_INTERFACE(IPluginCompareItems, cIPluginCompareItemsIID)
