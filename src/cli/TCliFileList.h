#pragma once

#include "TCliSyntax.h"

#include <QStringList>
#include <QVector>

class TCliArguments;

/// The files that a command works on: its operands, then those that a list names.
namespace TCliFileList {

extern const char cOption[];

/// --files-from, -0 and --spool-limit.
QVector<TCliOption> options();
/// False, with an error, for a list that cannot be read or names no file, and when the same stream is named twice,
/// since the second reader would find nothing.
bool read(const TCliArguments &arguments, QStringList &files, QString &error);

} // namespace TCliFileList
