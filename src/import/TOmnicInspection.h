#pragma once

#include "plugin/TFileNode.h"

class TOmnicFile;

/// What stands in an OMNIC file: header, directory with the blocks that it names, the axis that the import takes. Empty
/// for a file without the format's magic.
TFileNode inspectOmnic(const TOmnicFile &file);
