#include "commands/TSpectraCommand.h"

#include "canvas/TCanvasSpectrum.h"
#include "plot/TBasePlot.h"

namespace {

QList<TBasePlot *> plotsOf(TCanvasItem *item)
{
    auto *spectrum = dynamic_cast<TCanvasSpectrum *>(item);
    return spectrum ? spectrum->plots() : QList<TBasePlot *>();
}

bool isReached(const TBasePlot *plot)
{
    return plot->plotType() == TSpectraCommand::cSpectrumPlotType && plot->kind() == TSpectraCommand::cSpectrumPlotKind;
}

} // namespace

TSpectraCommand::TSpectraCommand(const QString &description, const TCanvasItemList &items, int flags, int update)
    : TCanvasItemsCommand(description, items, flags)
    , fUpdate(update)
{
}

void TSpectraCommand::doCmdItem(TCanvasItem *item, int)
{
    for (TBasePlot *plot : plotsOf(item)) {
        if (isReached(plot))
            doCommand(item, plot);
    }
    if (fUpdate != 0)
        item->update();
}

void TSpectraCommand::undoCmdItem(TCanvasItem *item, int index)
{
    const QList<TBasePlot *> plots = plotsOf(item);
    for (int i = plots.size() - 1; i >= 0; --i) {
        if (isReached(plots.at(i)))
            undoCommand(item, plots.at(i), index, i);
    }
    if (fUpdate != 0)
        item->update();
}
