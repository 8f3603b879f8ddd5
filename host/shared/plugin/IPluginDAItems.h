#pragma once

#include <QVariantMap>
#include <QtPlugin>

class IDAItemCtx;
class TCanvasItem;
class TCanvasItemList;
class TCommand;

/// What data analysis asks of a plug-in's items.
class IPluginDAItems
{
public:
    virtual ~IPluginDAItems() = default;
    /// The analysis context of an item, which owns it; null for an item of another type.
    virtual IDAItemCtx *daContext(TCanvasItem *item) = 0;
    /// A command that edits what belongs to the series of items as a whole, by numbers as text ("5": its label). The
    /// caller owns it.
    virtual TCommand *editArrayedDataCommand(const TCanvasItemList &items, const QVariantMap &map) = 0;
};

#define cIPluginDAItemsIID "com.dornveld.kelmora-qt.IPluginDAItems/1.0"
Q_DECLARE_INTERFACE(IPluginDAItems, cIPluginDAItemsIID)
