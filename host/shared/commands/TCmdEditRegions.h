#pragma once

#include "commands/TCanvasItemsCommand.h"
#include "contexts/TDARegion.h"

#include <QVector>

/// Gives an item other regions for data analysis.
class TCmdEditRegions : public TCanvasItemsCommand
{
    Q_OBJECT

public:
    /// An item that keeps no regions is left alone. Regions that the item has already make a void command.
    TCmdEditRegions(TCanvasItem *item, const QVector<TDARegion> &regions);

    TScriptStep scriptStep() const override;
    void doCmd() override;
    void doCmdItem(TCanvasItem *item, int index) override;
    void undoCmdItem(TCanvasItem *item, int index) override;
    bool cmdItemApplicable(TCanvasItem *item) const override;
    THistoryCommand *itemHistoryCommand(TCanvasItem *item) override;

private:
    QVector<TDARegion> fOther; // those that the item has not now
    bool fChanged = false;
};
