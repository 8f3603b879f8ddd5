#pragma once

#include "TTable.h"

/// UV-Vis spectra of methylene blue in water at six concentrations.
TTable makeDye();
