#pragma once

#include "plot/TAxisDir.h"

#include <QList>
#include <QString>
#include <QtPlugin>

class TCanvasItem;
class TCanvasItemList;
class TCommand;

/// A unit that an axis may have, as the user sees it. The code is the plug-in's and stays the same for good.
struct TUnitChoice
{
    int fCode = 0;
    QString fName;
};

/// The units of both axes.
struct TUnitPair
{
    int fX = 0;
    int fY = 0;
};

/// Items whose file did not say in which units its numbers are.
class IPluginUnits
{
public:
    virtual ~IPluginUnits() = default;
    /// Whether the item is of this plug-in and neither axis of its spectra has a known unit.
    virtual bool hasUnknownUnits(TCanvasItem *item) const = 0;
    virtual QList<TUnitChoice> unitChoices(TAxisDir axis) const = 0;
    /// The likely units of an item that came from that file.
    virtual TUnitPair guessUnits(TCanvasItem *item, const QString &fileName) const = 0;
    /// Commands that say what the numbers of the items are; no value changes. The caller owns them. Codes that are not
    /// among the choices give none.
    virtual QList<TCommand *> setUnitsCommands(const TCanvasItemList &items, const TUnitPair &units) const = 0;
};

#define cIPluginUnitsIID "com.dornveld.kelmora-qt.IPluginUnits/1.0"
Q_DECLARE_INTERFACE(IPluginUnits, cIPluginUnitsIID)
