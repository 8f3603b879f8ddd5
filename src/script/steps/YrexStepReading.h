#pragma once

#include "TYrexSpectrumPlaces.h"
#include "canvas/TCanvasItemList.h"

#include <QString>
#include <QVector>

class TStepCall;
class TYrexSpectrumListCommand;

/// How the steps of this module read what YrexStepValues tells. What is wrong becomes an error of the call.
namespace YrexStepReading {

/// The items of the call, which are all of this module; empty with an error.
TCanvasItemList items(TStepCall &call);
/// The only one of them; more are an error.
TCanvasItemList oneItem(TStepCall &call);
/// The code of a unit, by script name or number; `without` when it is not given.
int unit(TStepCall &call, const QString &name, int without);
/// A text; a null one, which documents keep apart from an empty one, when it is not given.
QString text(TStepCall &call, const QString &name);
/// Whole numbers for each of `count` items, from one list for all or a list for each.
QVector<QVector<int>> listsByItem(TStepCall &call, const QString &name, int count);
/// "spectrum": an index for all items or a list with one for each; the current ones when it is not given.
TYrexSpectrumPlaces places(TStepCall &call, const TCanvasItemList &items);
/// "spectra": indices of spectra that there are, which the command takes; nothing happens when they are not given. The
/// command, which may be null.
TYrexSpectrumListCommand *withSpectra(TStepCall &call, const TCanvasItemList &items, TYrexSpectrumListCommand *command);

} // namespace YrexStepReading
