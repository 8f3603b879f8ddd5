#include "TPlotController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "WAxisLimitsDialog.h"
#include "WDocumentView.h"
#include "canvas/TCanvasSpectrum.h"
#include "commands/TCmdChangeSpectraIntensity.h"
#include "commands/TCmdFitSpectraIntensityToHeight.h"
#include "commands/TCmdSpectraCuts.h"
#include "commands/TCmdZoomSpectra.h"
#include "plot/TBasePlot.h"

TPlotController::TPlotController(TActionTable &actions, TDocumentController &documents, QObject *parent)
    : QObject(parent)
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
    for (const auto &entry : {qMakePair(QString("horzLimits"), horzDir), qMakePair(QString("vertLimits"), vertDir)}) {
        const TAxisDir dir = entry.second;
        actions.on(
            entry.first, [this, dir] { askLimits(dir); }, [this] { return fSelection.noPlot(); });
    }
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

void TPlotController::askLimits(int dir)
{
    const TBasePlot *plot = fSelection.firstPlot();
    const auto axisDir = TAxisDir(dir);
    const TRange shown = plot->axis(axisDir).getScale();
    WAxisLimitsDialog dialog(plot->axisTitle(axisDir), shown, plot->viewDecimals(axisDir),
                             fSelection.documents().view());
    if (dialog.exec() != QDialog::Accepted)
        return;
    const TRange wanted = dialog.limits();
    QRectF rect;
    if (axisDir == horzDir) {
        rect.setLeft(wanted.lo());
        rect.setRight(wanted.hi());
    } else {
        rect.setTop(wanted.lo());
        rect.setBottom(wanted.hi());
    }
    fSelection.push(new TCmdZoomSpectra(fSelection.items(), rect, TCmdZoomSpectra::cBox));
}
