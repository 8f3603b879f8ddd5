#include "YrexFactories.h"

#include "TMMActYrexBaselinePoints.h"
#include "TMMActYrexDARegion.h"
#include "TMMActYrexDeleteIntegrals.h"
#include "TMMActYrexDeletePeaks.h"
#include "TMMActYrexIntegrate.h"
#include "TMMActYrexManualPeakPicking.h"
#include "TMMActYrexPeakByPeak.h"
#include "WYrexIntegralsDock.h"
#include "WYrexMultipointBaselineDock.h"
#include "WYrexParamsDock.h"
#include "WYrexPeaksDock.h"
#include "WYrexProcessingWidget.h"
#include "YrexModeIds.h"
#include "contexts/TDARegion.h"
#include "services/IGuiHost.h"
#include "services/TDockPlace.h"
#include "ui/TPluginMouseModeHandler.h"

namespace {

// logical pixels
constexpr int cTablesHeight = 260;
constexpr int cMultipointWidth = 330;
constexpr int cProcessingWidth = 340;

} // namespace

void YrexFactories::addDocks(IGuiHost &gui, IPluginHost &host, TYrexHighlightHandler &highlights)
{
    gui.addDock(new WYrexMultipointBaselineDock(host),
                {Qt::RightDockWidgetArea, QString(), 1, false, cMultipointWidth});
    gui.addDock(new WYrexProcessingWidget(host), {Qt::RightDockWidgetArea, "Ctrl+2", 2, true, cProcessingWidth});
    gui.addDock(new WYrexPeaksDock(host, highlights), {Qt::BottomDockWidgetArea, "Ctrl+3", 3, false, cTablesHeight});
    gui.addDock(new WYrexIntegralsDock(host, highlights),
                {Qt::BottomDockWidgetArea, "Ctrl+4", 4, false, cTablesHeight});
    gui.addDock(new WYrexParamsDock(host), {Qt::BottomDockWidgetArea, "Ctrl+6", 6, false, cTablesHeight});
}

void YrexFactories::addModes(IGuiHost &gui, IPluginHost &host, TYrexHighlightHandler &highlights)
{
    TPluginMouseModeHandler &modes = *gui.mouseModes();
    modes.append(new TMMActYrexIntegrate(host, highlights));
    modes.append(new TMMActYrexDeleteIntegrals(host));
    modes.append(new TMMActYrexManualPeakPicking(host));
    modes.append(new TMMActYrexPeakByPeak(host, highlights));
    modes.append(new TMMActYrexDeletePeaks(host));
    modes.append(new TMMActYrexBaselinePoints(host));
    modes.append(new TMMActYrexDARegion(YrexModes::regionSumModeID, TDARegion::cSum, gui));
    modes.append(new TMMActYrexDARegion(YrexModes::regionPeakModeID, TDARegion::cHighestPeak, gui));
}
