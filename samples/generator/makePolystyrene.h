#pragma once

#include "TTable.h"

/// An infrared absorbance spectrum of a polystyrene film.
TTable makePolystyrene();
