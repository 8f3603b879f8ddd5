#include "TCmdYrexEditIntegrals.h"

#include "TCanvasYrexSpectrum.h"

TCmdYrexEditIntegrals::TCmdYrexEditIntegrals(TCanvasYrexSpectrum *item, const TYrexIntegrationRegions &regions)
    : TCmdYrexEditIntegralsBase(TCanvasItemList{item})
{
    if (item)
        setRegions(item, {{item->stack().current(), regions}});
}
