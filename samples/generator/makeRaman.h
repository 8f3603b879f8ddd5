#pragma once

#include "TTable.h"

/// A Raman spectrum of paracetamol powder on a fluorescence background.
TTable makeRaman();
