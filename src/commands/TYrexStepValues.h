#pragma once

#include "commands/TScriptStep.h"

#include <QVariant>
#include <QVector>

class TCanvasItemList;
class TYrexSpectrumPlaces;

/// How the commands of this module tell their arguments to scripts.
namespace YrexStepValues {

/// The script name of a unit; the code itself where no name leads back to it.
QVariant unit(int code);
/// Reads a number of a script; false, with `number` untouched, for anything else.
bool readNumber(const QVariant &value, double &number);
/// Reads a whole number.
bool readWhole(const QVariant &value, int &number);
/// Lists of numbers by item: one list where all are the same, else a list for each item.
QVariant byItem(const QVector<QVector<int>> &lists);
/// Adds "spectrum", the spectra that the places name, unless no item has a choice.
TScriptStep withSpectrum(TScriptStep step, const TYrexSpectrumPlaces &places, const TCanvasItemList &items);
/// Adds "spectra", indices by item, unless no item has a choice.
TScriptStep withSpectra(TScriptStep step, const QVector<QVector<int>> &spectra, const TCanvasItemList &items);

} // namespace YrexStepValues
