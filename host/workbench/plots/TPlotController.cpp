#include "TPlotController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "canvas/TCanvasSpectrum.h"
#include "commands/TCmdChangeSpectraIntensity.h"
#include "commands/TCmdFitSpectraIntensityToHeight.h"
#include "commands/TCmdSpectraCuts.h"
#include "commands/TCmdZoomSpectra.h"
#include "plugin/IPluginItemZoom.h"
#include "services/TKelmoraHost.h"

TPlotController::TPlotController(TKelmoraHost &host, TActionTable &actions, TDocumentController &documents,
                                 QObject *parent)
    : QObject(parent)
    , fHost(host)
    , fSelection(documents)
{
    const auto add = [this, &actions](const QString &name, const std::function<TCommand *()> &command) {
        actions.on(
            name, [this, command] { fSelection.push(command()); }, [this] { return fSelection.noPlot(); });
    };
    const TPlotSelection &plots = fSelection;
    add("fullView", [&plots] { return new TCmdZoomSpectra(plots.items(), QRectF(), TCmdZoomSpectra::cFullView); });
    add("fitHeight", [&plots] { return new TCmdFitSpectraIntensityToHeight(plots.items()); });
    add("intensityUp", [&plots] { return new TCmdChangeSpectraIntensity(plots.items(), true, 1.0); });
    add("intensityDown", [&plots] { return new TCmdChangeSpectraIntensity(plots.items(), false, 1.0); });
    add("showAllRanges",
        [&plots] { return new TCmdSpectraCuts(plots.items(), TCmdSpectraCuts::cRestoreAll, TRange()); });
    addHistoryActions(actions);
    const auto addDialog = [this, &actions](const char *name, TAxisDir axis) {
        actions.on(
            name, [this, axis] { showZoomDialog(axis); }, [this] { return fSelection.noPlot(); });
    };
    addDialog("zoomDialog", horzDir);
    addDialog("horzLimits", horzDir);
    addDialog("vertLimits", vertDir);
}

void TPlotController::addHistoryActions(TActionTable &actions)
{
    const auto walk = [this](bool back) {
        for (ICanvasItem *item : fSelection.items())
            back ? canvasItem(item)->goToFormerView() : canvasItem(item)->goToLaterView();
    };
    actions.on(
        "zoomBack", [walk] { walk(true); },
        [this] {
            const TCanvasSpectrum *item = fSelection.first();
            return item && item->viewHistory().backCount() > 0 ? QString() : tr("There is no earlier zoom.");
        });
    actions.on(
        "zoomForward", [walk] { walk(false); },
        [this] {
            const TCanvasSpectrum *item = fSelection.first();
            return item && item->viewHistory().forwardCount() > 0 ? QString() : tr("There is no later zoom.");
        });
}

void TPlotController::showZoomDialog(int axis) const
{
    const TCanvasItemList items = fSelection.items();
    for (QObject *plugin : fHost.plugins()) {
        auto *zoom = qobject_cast<IPluginItemZoom *>(plugin);
        if (zoom && zoom->showZoomDialog(items, TAxisDir(axis)))
            return;
    }
}
