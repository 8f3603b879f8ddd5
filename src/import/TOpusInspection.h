#pragma once

#include "plugin/TFileNode.h"

/// An OPUS file as its reader sees it: header, directory with each type word in words, which data block belongs to
/// which status block, parameters, and what becomes a spectrum or is passed over. Empty when the file does not begin as
/// OPUS files do.
TFileNode inspectOpusFile(const QString &path);
