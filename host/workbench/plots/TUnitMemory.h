#pragma once

#include "plugin/IPluginUnits.h"

#include <QStringList>

/// The units that the user chose once for all files of an ending ("Kelmora/Import/Units/ENDING").
namespace TUnitMemory {

/// Of a file name, in small letters.
QString endingOf(const QString &path);
/// False when nothing is kept for that ending.
bool find(const QString &ending, TUnitPair &units);
void keep(const QString &ending, const TUnitPair &units);
void forget(const QString &ending);
/// For which something is kept, in the order of the alphabet.
QStringList endings();

} // namespace TUnitMemory
