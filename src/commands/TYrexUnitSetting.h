#pragma once

#include "plugin/IPluginUnits.h"

/// What the module knows of units when a file does not name them: which there are, which are likely, and how they are
/// set.
namespace TYrexUnitSetting {

/// True when no spectrum of the item has a unit on either axis.
bool isUnknown(TCanvasItem *item);
QList<TUnitChoice> choices(TAxisDir axis);
/// From the range of x and the file's first line; y stays arbitrary, since its values tell too little.
TUnitPair guess(TCanvasItem *item, const QString &fileName);
/// The guess for the range from `low` to `high` of x; arbitrary when none is likely.
int guessX(double low, double high, const QByteArray &firstLine);
QList<TCommand *> commands(const TCanvasItemList &items, const TUnitPair &units);

} // namespace TYrexUnitSetting
