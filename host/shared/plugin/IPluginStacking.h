#pragma once

#include <QMap>
#include <QtPlugin>

class TCanvasItem;
class TCanvasItemList;
class TCommand;
class TDocument;
class TDragAndDropHandler;

/// Stacks of a plug-in's items. The caller owns the commands; null where there is nothing to do.
class IPluginStacking
{
public:
    virtual ~IPluginStacking() = default;
    /// New items on new pages of the document with copies of all spectra, in rows or over each other.
    virtual TCommand *stackCommand(const TCanvasItemList &items, TDocument *document, bool stacked) = 0;
    /// Copies of all spectra of other items go into this one, behind its own. Null where they do not fit.
    virtual TCommand *insertCommand(TCanvasItem *item, const TCanvasItemList &from) = 0;
    /// One new item for each class of the item's spectra.
    virtual TCommand *splitByClassCommand(TCanvasItem *item, TDocument *document) = 0;
    /// Sets the series values of spectra, by their index.
    virtual TCommand *seriesValuesCommand(const TCanvasItemList &items, const QMap<int, double> &values) = 0;
    /// What drags over the plug-in's items do; the plug-in owns it.
    virtual TDragAndDropHandler *dragAndDropHandler() = 0;
};

#define cIPluginStackingIID "com.dornveld.kelmora-qt.IPluginStacking/1.0"
Q_DECLARE_INTERFACE(IPluginStacking, cIPluginStackingIID)
