#include "TYrexSpectrumCommand.h"

#include "TCanvasYrexSpectrum.h"

THistoryCommand *TYrexSpectrumCommand::itemHistoryCommand(TCanvasItem *item)
{
    return makeItemHistory(yrexItem(item));
}

THistoryCommand *TYrexSpectrumCommand::makeItemHistory(TCanvasYrexSpectrum *item)
{
    return TYrexItemsCommand::itemHistoryCommand(item);
}
