#pragma once

#include <QtPlugin>

class TBaseTable;
class TCanvasItem;
class TPropertiesBag;
class TTableProperties;

/// Makes the items of a plug-in's types, and what goes with them. Null for a type that is not the plug-in's.
class IPluginCanvasItem
{
public:
    virtual ~IPluginCanvasItem() = default;
    /// A new empty item without a page; the caller owns it.
    virtual TCanvasItem *createItem(int rtti) = 0;
    virtual void *reservedA() { return nullptr; }
    virtual TPropertiesBag *createPropertiesBag(int rtti) = 0;
    virtual void *reservedB() { return nullptr; }
    /// The bag of several items at once.
    virtual TPropertiesBag *createMultiPropertiesBag(int rtti, int a, int b) = 0;
    virtual TBaseTable *createTable(TTableProperties *properties, TCanvasItem *item) = 0;
};

#define cIPluginCanvasItemIID "com.dornveld.kelmora-qt.IPluginCanvasItem/1.0"
Q_DECLARE_INTERFACE(IPluginCanvasItem, cIPluginCanvasItemIID)
