#pragma once

#include "TCliSyntax.h"

/// What the commands that write files say of them in the same words.
namespace TCliOutputHelp {

/// -o, --to and --force.
QVector<TCliOption> dataOptions();
QStringList dataNotes();

} // namespace TCliOutputHelp
