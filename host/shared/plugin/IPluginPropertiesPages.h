#pragma once

#include <QVariantMap>
#include <QtPlugin>

class QWidget;
class TCanvasItem;
class TCanvasItemList;
class WPropertiesPages;

/// The properties of a plug-in's items, as the user edits them.
class IPluginPropertiesPages
{
public:
    virtual ~IPluginPropertiesPages() = default;
    virtual bool hasPropertiesPages(const TCanvasItem &item) const = 0;
    /// Pages for all items that hasPropertiesPages accepts; owned by the parent.
    virtual WPropertiesPages *createPropertiesPages(QWidget *parent) = 0;
    /// The fields of the item's looks that make sense on other items; empty for an item that is not the plug-in's.
    virtual QVariantMap formatOf(const TCanvasItem &item) const = 0;
    /// Gives items such fields, those of them that they know, as one step. False when nothing was changed.
    virtual bool applyFormat(const TCanvasItemList &items, const QVariantMap &fields) = 0;
};

#define cIPluginPropertiesPagesIID "com.dornveld.kelmora-qt.IPluginPropertiesPages/1.0"
Q_DECLARE_INTERFACE(IPluginPropertiesPages, cIPluginPropertiesPagesIID)
