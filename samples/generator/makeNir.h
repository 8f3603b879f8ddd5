#pragma once

#include "TTable.h"

/// Near-infrared spectra, log(1/R), of twelve powders of one kind with light scatter.
TTable makeNir();
