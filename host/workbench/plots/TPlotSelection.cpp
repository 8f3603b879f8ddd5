#include "TPlotSelection.h"

#include "TDocumentController.h"
#include "WDocumentView.h"
#include "canvas/TCanvasSpectrum.h"
#include "canvas/TDocument.h"
#include "plot/T1DStackedPlot.h"
#include "ui/PlotSteps.h"

#include <QCoreApplication>

TCanvasItemList TPlotSelection::items() const
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

TCanvasSpectrum *TPlotSelection::first() const
{
    const TCanvasItemList found = items();
    return found.isEmpty() ? nullptr : static_cast<TCanvasSpectrum *>(canvasItem(found.first()));
}

TBasePlot *TPlotSelection::firstPlot() const
{
    return first() ? first()->activePlot() : nullptr;
}

T1DStackedPlot *TPlotSelection::stackedPlot() const
{
    auto *plot = dynamic_cast<T1DStackedPlot *>(firstPlot());
    return plot && plot->isArrayed() ? plot : nullptr;
}

IStackedItemCtx *TPlotSelection::stack() const
{
    return first() ? first()->stackedContext() : nullptr;
}

QString TPlotSelection::noPlot() const
{
    return firstPlot() ? QString() : QCoreApplication::translate("TPlotSelection", "Needs a selected plot.");
}

QString TPlotSelection::noStack() const
{
    return stackedPlot()
               ? QString()
               : QCoreApplication::translate("TPlotSelection", "Needs a stack of two or more visible spectra.");
}

void TPlotSelection::push(TCommand *command) const
{
    fDocuments.document()->history().push(command);
}

void TPlotSelection::setProperties(const QVariantMap &fields) const
{
    PlotSteps::setProperties(fDocuments.document()->history(), items(), fields);
}
