#pragma once

#include "canvas/TCanvasItemList.h"
#include "plot/TAxisDir.h"

#include <QString>
#include <QStringList>
#include <QVector>

class TCanvasYrexSpectrum;
class TStepCall;

/// Arguments that several steps of spectra take.
namespace YrexStepArguments {

/// The items of the call; an error for one that shows no spectra.
TCanvasItemList items(TStepCall &call);
/// The first of them; null without.
TCanvasYrexSpectrum *item(TStepCall &call);
/// The spectra of each item that are meant: "spectra" as a list of indices for all items or such a list for each; all
/// spectra without it.
QVector<QVector<int>> targets(TStepCall &call, const TCanvasItemList &items);
/// The place of a word in a list of those that are possible; -1 with an error for any other.
int word(TStepCall &call, const QString &name, const QStringList &words);
/// A unit of that axis by its name in scripts.
int unit(TStepCall &call, const QString &name, TAxisDir axis);

} // namespace YrexStepArguments
