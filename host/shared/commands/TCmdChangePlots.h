#pragma once

#include "commands/TCanvasItemsCommand.h"
#include "commands/TPlotSnapshot.h"
#include "commands/TStackState.h"

#include <QVector>
#include <functional>

class TBasePlot;
class TCanvasSpectrum;

/// Changes how spectrum items are shown (grid, titles, display mode, which spectra are visible) through a function.
/// Undo puts back the plots as they were, and the state of a stack.
class TCmdChangePlots : public TCanvasItemsCommand
{
    Q_OBJECT

public:
    using TChange = std::function<void(TCanvasSpectrum &item, TBasePlot &plot)>;

    TCmdChangePlots(const QString &description, const TCanvasItemList &items, const TChange &change);

    void doCmd() override;
    void doCmdItem(TCanvasItem *item, int index) override;
    void undoCmdItem(TCanvasItem *item, int index) override;
    bool cmdItemApplicable(TCanvasItem *item) const override;
    THistoryCommand *itemHistoryCommand(TCanvasItem *item) override;

private:
    struct TBefore
    {
        TPlotSnapshot plots;
        TStackState stack;
    };

    TChange fChange;
    QVector<TBefore> fBefore; // one per item
    bool fChanged = false;
};
