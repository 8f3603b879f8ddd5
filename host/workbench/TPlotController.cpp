#include "TPlotController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "WDocumentView.h"
#include "canvas/TCanvasSpectrum.h"
#include "canvas/TDocument.h"
#include "commands/TCmdChangePlots.h"
#include "commands/TCmdChangeSpectraIntensity.h"
#include "commands/TCmdFitSpectraIntensityToHeight.h"
#include "commands/TCmdSpectraCuts.h"
#include "commands/TCmdZoomSpectra.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/T1DStackedPlot.h"
#include "ui/PlotSteps.h"

namespace {

constexpr double cSpacingStep = 1.1;

} // namespace

TPlotController::TPlotController(TActionTable &actions, TDocumentController &documents, QObject *parent)
    : QObject(parent)
    , fDocuments(documents)
{
    addZoomActions(actions);
    addShowActions(actions);
    addStackActions(actions);
}

TCanvasItemList TPlotController::items() const
{
    TCanvasItemList spectra;
    const auto add = [&spectra](ICanvasItem *item) {
        const auto *spectrum = dynamic_cast<TCanvasSpectrum *>(item);
        if (spectrum && spectrum->activePlot())
            spectra.append(item);
    };
    if (!fDocuments.view())
        return spectra;
    for (ICanvasItem *item : fDocuments.view()->selection().items())
        add(item);
    if (spectra.isEmpty() && fDocuments.page() && fDocuments.page()->items().size() == 1)
        add(fDocuments.page()->items().first());
    return spectra;
}

TCanvasSpectrum *TPlotController::first() const
{
    const TCanvasItemList found = items();
    return found.isEmpty() ? nullptr : static_cast<TCanvasSpectrum *>(canvasItem(found.first()));
}

TBasePlot *TPlotController::firstPlot() const
{
    return first() ? first()->activePlot() : nullptr;
}

T1DStackedPlot *TPlotController::stackedPlot() const
{
    auto *plot = dynamic_cast<T1DStackedPlot *>(firstPlot());
    return plot && plot->isArrayed() ? plot : nullptr;
}

QString TPlotController::noPlot() const
{
    return firstPlot() ? QString() : tr("Needs a selected plot.");
}

QString TPlotController::noStack() const
{
    return stackedPlot() ? QString() : tr("Needs a stack of two or more visible spectra.");
}

void TPlotController::push(TCommand *command)
{
    fDocuments.document()->history().push(command);
}

void TPlotController::change(const QString &text, const std::function<void(TCanvasSpectrum &, TBasePlot &)> &change)
{
    push(new TCmdChangePlots(text, items(), change));
}

void TPlotController::addZoomActions(TActionTable &actions)
{
    const auto needsPlot = [this] { return noPlot(); };
    actions.on(
        "fullView", [this] { push(new TCmdZoomSpectra(items(), QRectF(), TCmdZoomSpectra::cFullView)); }, needsPlot);
    const auto walk = [this](bool back) {
        for (ICanvasItem *item : items())
            back ? canvasItem(item)->goToFormerView() : canvasItem(item)->goToLaterView();
    };
    actions.on(
        "zoomBack", [walk] { walk(true); },
        [this] {
            return first() && first()->viewHistory().backCount() > 0 ? QString() : tr("There is no earlier zoom.");
        });
    actions.on(
        "zoomForward", [walk] { walk(false); },
        [this] {
            return first() && first()->viewHistory().forwardCount() > 0 ? QString() : tr("There is no later zoom.");
        });
    actions.on(
        "fitHeight", [this] { push(new TCmdFitSpectraIntensityToHeight(items())); }, needsPlot);
    actions.on(
        "intensityUp", [this] { push(new TCmdChangeSpectraIntensity(items(), true, 1.0)); }, needsPlot);
    actions.on(
        "intensityDown", [this] { push(new TCmdChangeSpectraIntensity(items(), false, 1.0)); }, needsPlot);
    actions.on(
        "showAllRanges", [this] { push(new TCmdSpectraCuts(items(), TCmdSpectraCuts::cRestoreAll, TRange())); },
        needsPlot);
}

void TPlotController::addShowActions(TActionTable &actions)
{
    const auto needsPlot = [this] { return noPlot(); };
    const auto isGridShown = [this] { return firstPlot() && firstPlot()->properties().horzAxis.majorGrid; };
    actions.on(
        "grid",
        [this, isGridShown] {
            const bool shows = !isGridShown();
            change(tr("Grid"), [shows](TCanvasSpectrum &, TBasePlot &plot) {
                plot.properties().horzAxis.majorGrid = shows;
                plot.properties().vertAxis.majorGrid = shows;
            });
        },
        needsPlot, isGridShown);
    const auto isTitleShown = [this] { return firstPlot() && firstPlot()->isTitleVisible(); };
    actions.on(
        "titles",
        [this, isTitleShown] {
            const bool shows = !isTitleShown();
            change(tr("Titles"), [shows](TCanvasSpectrum &, TBasePlot &plot) { plot.setTitleVisible(shows); });
        },
        needsPlot, isTitleShown);
    const auto isFitting = [this] { return firstPlot() && firstPlot()->properties().keepFitting; };
    actions.on(
        "keepFitting",
        [this, isFitting] {
            const bool keeps = !isFitting();
            change(tr("Keep Fitting"), [keeps](TCanvasSpectrum &, TBasePlot &plot) {
                plot.properties().keepFitting = keeps;
                if (keeps)
                    plot.fitToHeight();
            });
        },
        needsPlot, isFitting);
}

void TPlotController::addDisplayMode(TActionTable &actions, const QString &action, int mode)
{
    actions.on(
        action,
        [this, mode] {
            change(tr("Display Mode"), [mode](TCanvasSpectrum &item, TBasePlot &) {
                if (IStackedItemCtx *stack = item.stackedContext())
                    stack->setDisplayMode(mode);
            });
        },
        [this] { return noStack(); },
        [this, mode] { return stackedPlot() && stackedPlot()->stackedProperties().displayMode() == mode; });
}

void TPlotController::addStackActions(TActionTable &actions)
{
    const auto needsStack = [this] { return noStack(); };
    addDisplayMode(actions, "modeActive", activeOnlyMode);
    addDisplayMode(actions, "modeOverlay", overlayMode);
    addDisplayMode(actions, "modeStacked", stackedMode);
    addDisplayMode(actions, "modeHiddenLines", hiddenLinesMode);
    addDisplayMode(actions, "modeQueued", queuedMode);
    addDisplayMode(actions, "modeGrouped", groupedMode);
    const auto space = [this](double factor) {
        change(tr("Stack Spacing"), [factor](TCanvasSpectrum &, TBasePlot &plot) {
            if (auto *stacked = dynamic_cast<T1DStackedPlot *>(&plot))
                stacked->stackedProperties().setSpacing(stacked->stackedProperties().spacing() * factor);
        });
    };
    const auto needsRows = [this] {
        return stackedPlot() && stackedPlot()->hasRows() ? QString() : tr("Needs a stack in a display with rows.");
    };
    actions.on(
        "spacingUp", [space] { space(cSpacingStep); }, needsRows);
    actions.on(
        "spacingDown", [space] { space(1.0 / cSpacingStep); }, needsRows);
    const auto step = [this](int places) {
        TCanvasItemList list = items();
        if (PlotSteps::stepActive(list, places))
            fDocuments.view()->stackChanged(canvasItem(list.first()));
    };
    actions.on(
        "activePrevious", [step] { step(-1); }, needsStack);
    actions.on(
        "activeNext", [step] { step(1); }, needsStack);
    actions.on(
        "hideActive",
        [this] {
            change(tr("Hide Spectrum"), [](TCanvasSpectrum &item, TBasePlot &) {
                IStackedItemCtx *stack = item.stackedContext();
                if (stack && stack->visibleOrder().size() > 1)
                    stack->setVisible(stack->activeIndex(), false);
            });
        },
        needsStack);
    actions.on(
        "showAllSpectra",
        [this] {
            change(tr("Show All Spectra"), [](TCanvasSpectrum &item, TBasePlot &) {
                if (IStackedItemCtx *stack = item.stackedContext())
                    stack->setVisibleRange(0, stack->count() - 1, true);
            });
        },
        [this] {
            const TCanvasSpectrum *item = first();
            IStackedItemCtx *stack = item ? first()->stackedContext() : nullptr;
            return stack && !stack->allVisible() ? QString() : tr("No spectrum is hidden.");
        });
}
