#pragma once

class IGuiHost;
class IPluginHost;
class TYrexHighlightHandler;

/// The module's docks and mouse modes, added to a window. All are owned by the window.
namespace YrexFactories {

void addDocks(IGuiHost &gui, IPluginHost &host, TYrexHighlightHandler &highlights);
void addModes(IGuiHost &gui, IPluginHost &host, TYrexHighlightHandler &highlights);

} // namespace YrexFactories
