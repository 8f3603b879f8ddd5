#pragma once

#include "commands/TCanvasItemsCommand.h"

class TBasePlot;

/// A command on the plots of spectrum items: it reaches each plot of type 7 whose kind is 1.
class TSpectraCommand : public TCanvasItemsCommand
{
    Q_OBJECT

public:
    /// What is told to a plot's item afterwards.
    enum TUpdate { cUpdateRepaint = 1, cUpdateLayout = 2, cUpdateAxes = 4 };
    static constexpr int cSpectrumPlotType = 7;
    static constexpr int cSpectrumPlotKind = 1;

    TSpectraCommand(const QString &description, const TCanvasItemList &items, int flags, int update);

    void doCmdItem(TCanvasItem *item, int index) override;
    void undoCmdItem(TCanvasItem *item, int index) override;

    virtual void doCommand(TCanvasItem *item, TBasePlot *plot) = 0;
    /// `itemIndex` and `plotIndex` are the places in the list of items and in the item's list of plots.
    virtual void undoCommand(TCanvasItem *item, TBasePlot *plot, int itemIndex, int plotIndex) = 0;

private:
    int fUpdate;
};
