#include "YrexFactories.h"

#include "TMMActYrexDeleteIntegrals.h"
#include "TMMActYrexDeletePeaks.h"
#include "TMMActYrexIntegrate.h"
#include "TMMActYrexManualPeakPicking.h"
#include "TMMActYrexPeakByPeak.h"
#include "services/IGuiHost.h"
#include "ui/TPluginMouseModeHandler.h"

void YrexFactories::addDocks(IGuiHost &, IPluginHost &, TYrexHighlightHandler &) {}
#include "WYrexPeaksDock.h"
#include "services/IGuiHost.h"
#include "services/TDockPlace.h"

namespace {

constexpr int cTablesHeight = 260; // px

} // namespace

void YrexFactories::addDocks(IGuiHost &gui, IPluginHost &host, TYrexHighlightHandler &highlights)
{
    gui.addDock(new WYrexPeaksDock(host, highlights), {Qt::BottomDockWidgetArea, "Ctrl+3", 3, false, cTablesHeight});
}

void YrexFactories::addModes(IGuiHost &gui, IPluginHost &host, TYrexHighlightHandler &highlights)
{
    gui.mouseModes()->append(new TMMActYrexIntegrate(host, highlights));
    gui.mouseModes()->append(new TMMActYrexDeleteIntegrals(host));
    gui.mouseModes()->append(new TMMActYrexManualPeakPicking(host));
    gui.mouseModes()->append(new TMMActYrexPeakByPeak(host, highlights));
    gui.mouseModes()->append(new TMMActYrexDeletePeaks(host));
#include "TMMActYrexBaselinePoints.h"
#include "WYrexMultipointBaselineDock.h"
#include "services/IGuiHost.h"
#include "services/TDockPlace.h"
#include "ui/TPluginMouseModeHandler.h"

void YrexFactories::addDocks(IGuiHost &gui, IPluginHost &host, TYrexHighlightHandler &)
{
    gui.addDock(new WYrexMultipointBaselineDock(host), {Qt::RightDockWidgetArea, QString(), 1, false, 330});
}

void YrexFactories::addModes(IGuiHost &gui, IPluginHost &host, TYrexHighlightHandler &)
{
    gui.mouseModes()->append(new TMMActYrexBaselinePoints(host));
#include "TMMActYrexDARegion.h"
#include "YrexModeIds.h"
#include "contexts/TDARegion.h"
#include "services/IGuiHost.h"
#include "ui/TPluginMouseModeHandler.h"

void YrexFactories::addDocks(IGuiHost &, IPluginHost &, TYrexHighlightHandler &) {}

void YrexFactories::addModes(IGuiHost &gui, IPluginHost &, TYrexHighlightHandler &)
{
    gui.mouseModes()->append(new TMMActYrexDARegion(YrexModes::regionSumModeID, TDARegion::cSum, gui));
    gui.mouseModes()->append(new TMMActYrexDARegion(YrexModes::regionPeakModeID, TDARegion::cHighestPeak, gui));
}
