#pragma once

#include "services/IReportService.h"

class TCanvasYrexSpectrum;

/// The report of what was done to the active spectrum of an item: its origin, and each applied action of the chain in
/// order with the values of its keys.
TReport yrexProcessingReport(const TCanvasYrexSpectrum &item);
