#include "TYrexUnitsCommand.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "history/THistoryCommand.h"

TYrexUnitsCommand::TYrexUnitsCommand(const QString &description, TAxisDir axis, int unit, const TCanvasItemList &items)
    : TSpectraCommand(description + yrexUnitDisplayName(unit), items, cRepaint, cUpdateAxes)
    , fAxis(axis)
    , fUnit(unit)
    , fPlots(items.size())
{
    for (ICanvasItem *entry : items) {
        QVector<int> units;
        const TCanvasYrexSpectrum *item = yrexItem(entry);
        for (const TBasePlot *plot : item ? item->plots() : QList<TBasePlot *>())
            units.append(shownUnit(*plot));
        fOldUnits.append(units);
    }
}

int TYrexUnitsCommand::shownUnit(const TBasePlot &plot) const
{
    const auto *shown = dynamic_cast<const T1DYrexPlot *>(&plot);
    if (!shown)
        return cUnitArbitrary;
    return fAxis == horzDir ? shown->xUnits() : shown->yUnits();
}

TScriptStep TYrexUnitsCommand::unitsStep(const QString &name) const
{
    TCanvasItemList concerned;
    for (ICanvasItem *entry : items()) {
        if (cmdItemApplicable(canvasItem(entry)))
            concerned.append(entry);
    }
    return TScriptStep(name).on(concerned).with(fAxis == horzDir ? "xUnits" : "yUnits", yrexUnitScriptName(fUnit));
}

bool TYrexUnitsCommand::cmdItemApplicable(TCanvasItem *item) const
{
    const TCanvasYrexSpectrum *spectrumItem = yrexItem(item);
    return spectrumItem && spectrumItem->currentSpectrum() && !yrexUnitDisplayName(fUnit).isEmpty();
}

void TYrexUnitsCommand::doCmd()
{
    fChanged = false;
    TSpectraCommand::doCmd();
    setVoidFlag(!fChanged);
}

void TYrexUnitsCommand::doCmdItem(TCanvasItem *item, int index)
{
    TCanvasYrexSpectrum &spectrumItem = *yrexItem(item);
    fPlots[index].capture(item);
    saveSpectra(spectrumItem, index);
    for (const TBasePlot *plot : spectrumItem.plots())
        fChanged = fChanged || (plot->kind() == cSpectrumPlotKind && shownUnit(*plot) != fUnit);
    TSpectraCommand::doCmdItem(item, index);
    TPlotSnapshot after;
    after.capture(item);
    fChanged = fChanged || !(after == fPlots.at(index));
}

void TYrexUnitsCommand::undoCmdItem(TCanvasItem *item, int index)
{
    TSpectraCommand::undoCmdItem(item, index);
    restoreSpectra(*yrexItem(item), index);
    fPlots.at(index).restore(item);
    item->update();
}

THistoryCommand *TYrexUnitsCommand::itemHistoryCommand(TCanvasItem *item)
{
    return new THistoryCommand(description(), item, QString());
}
