#pragma once

struct TFileNode;
class TBinaryFile;

/// What stands in an SPC file: header, X array, subfiles and log with their offsets, and what the import makes of them.
/// Empty for a file that cannot be opened and for an unknown version.
TFileNode spcInspection(const TBinaryFile &file);
