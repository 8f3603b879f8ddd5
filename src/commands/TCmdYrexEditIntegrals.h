#pragma once

#include "TCmdYrexEditIntegralsBase.h"

/// Gives the current spectrum of an item other integration regions, areas and norm value included.
class TCmdYrexEditIntegrals : public TCmdYrexEditIntegralsBase
{
    Q_OBJECT

public:
    TCmdYrexEditIntegrals(TCanvasYrexSpectrum *item, const TYrexIntegrationRegions &regions);
};
