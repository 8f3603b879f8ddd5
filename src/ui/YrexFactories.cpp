#include "YrexFactories.h"

void YrexFactories::addDocks(IGuiHost &, IPluginHost &, TYrexHighlightHandler &) {}

void YrexFactories::addModes(IGuiHost &, IPluginHost &, TYrexHighlightHandler &) {}
