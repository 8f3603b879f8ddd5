#pragma once

#include "TCmdYrexEditIntegralsBase.h"

/// Gives several spectra of a stack other integration regions.
class TCmdYrexEditArrayedIntegrals : public TCmdYrexEditIntegralsBase
{
    Q_OBJECT

public:
    /// The regions by the spectrum's index; spectra that are not named keep theirs.
    TCmdYrexEditArrayedIntegrals(TCanvasYrexSpectrum *item, const QMap<int, TYrexIntegrationRegions> &regions);
};
