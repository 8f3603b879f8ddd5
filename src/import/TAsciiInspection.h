#pragma once

#include "plugin/TFileNode.h"

class QIODevice;

/// What the reader of text tables sees in a text: its lines of words with their numbers, where the numbers begin, how
/// lines are cut, the columns, and the x axis or what is wrong with it. Empty for a device without text. The device
/// must allow random access.
TFileNode inspectAsciiTable(QIODevice *device);
