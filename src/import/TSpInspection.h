#pragma once

#include "plugin/TFileNode.h"

class TSpFile;

/// What stands in a PerkinElmer file: header, the tree of blocks, the name values. Empty for a file without the
/// signature.
TFileNode inspectSp(const TSpFile &file);
