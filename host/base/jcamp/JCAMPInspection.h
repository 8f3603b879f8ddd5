#pragma once

#include "plugin/TFileNode.h"

/// What stands in a JCAMP-DX file: its blocks, their labels with line numbers and values cut short, and of tables of
/// data the form, the points announced and found, the X range and the checks that failed. Empty only when the file
/// cannot be read or no block is in it.
TFileNode jcampInspection(const QString &path);
