#pragma once

class TCanvasYrexSpectrum;
class THistoryCommand;
class TYrexIntegrationRegion;

/// What the commands on integrals have in common.
namespace YrexIntegralHistory {

/// Tells of a region of the spectrum with that index: area, unit, mode and, where asked, its limits in the unit.
void tell(THistoryCommand &entry, const TCanvasYrexSpectrum &item, int specIndex, const TYrexIntegrationRegion &region,
          int unit, bool withLimits);

} // namespace YrexIntegralHistory
