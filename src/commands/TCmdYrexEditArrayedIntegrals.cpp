#include "TCmdYrexEditArrayedIntegrals.h"

#include "TCanvasYrexSpectrum.h"

TCmdYrexEditArrayedIntegrals::TCmdYrexEditArrayedIntegrals(TCanvasYrexSpectrum *item,
                                                           const QMap<int, TYrexIntegrationRegions> &regions)
    : TCmdYrexEditIntegralsBase(TCanvasItemList{item})
{
    setRegions(item, regions);
}
