#pragma once

#include <QString>

class TBinaryFile;

/// Why a file is no SPC file of an optical spectrum; empty when it is one. Experiments and axes of other methods, which
/// have readers of their own, are refused.
QString spcRefusal(const TBinaryFile &file);
