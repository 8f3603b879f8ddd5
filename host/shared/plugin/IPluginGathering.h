#pragma once

#include <QString>
#include <QVariant>
#include <QtPlugin>

class TCanvasItem;
class TCanvasItemList;

/// The spectra of a plug-in's items, one by one: what they are, and how those of several items come into one.
class IPluginGathering
{
public:
    enum TFact { cDate, cPoints, cFormat, cTitle }; // a QDateTime, an int, a QString, the title as it is stored

    virtual ~IPluginGathering() = default;
    /// Names the horizontal unit that all spectra of an item share. Items of equal names can be gathered; it is empty
    /// for spectra of several units and for items that are not the plug-in's.
    virtual QString horzUnitOf(TCanvasItem *item) const = 0;
    /// A new stacked item without a page, which the caller owns, with copies of all spectra in their order. Null for
    /// items that cannot be gathered.
    virtual TCanvasItem *gather(const TCanvasItemList &items) const = 0;
    /// Invalid for an index out of range, for what a file did not tell, and for items that are not the plug-in's.
    virtual QVariant spectrumFact(TCanvasItem *item, int index, TFact fact) const = 0;
    /// Names the place that the item's spectra came from, when it is not the file that they were read from.
    virtual void nameSource(TCanvasItem *item, const QString &name) const = 0;
};

#define cIPluginGatheringIID "com.dornveld.kelmora-qt.IPluginGathering/1.0"
Q_DECLARE_INTERFACE(IPluginGathering, cIPluginGatheringIID)
