#pragma once

#include "commands/TCanvasItemsCommand.h"
#include "commands/TPlotSnapshot.h"
#include "commands/TStackState.h"

#include <QVector>

/// Changes the order of the spectra of stacks, or shows and hides some of them.
class TCmdStackedItemsArrange : public TCanvasItemsCommand
{
    Q_OBJECT

public:
    /// The spectra at these indices come first, in this order.
    TCmdStackedItemsArrange(const TCanvasItemList &items, const QVector<int> &order);
    /// Shows or hides the spectra at these indices. The last visible one stays.
    TCmdStackedItemsArrange(const TCanvasItemList &items, const QVector<int> &indices, bool visible);

    TScriptStep scriptStep() const override;
    void doCmd() override;
    void doCmdItem(TCanvasItem *item, int index) override;
    void undoCmdItem(TCanvasItem *item, int index) override;
    bool cmdItemApplicable(TCanvasItem *item) const override;
    THistoryCommand *itemHistoryCommand(TCanvasItem *item) override;

private:
    struct TBefore
    {
        TStackState stack;
        TPlotSnapshot plots;
    };
    bool arrange(IStackedItemCtx &stack) const;

    enum TKind { cOrder, cShow, cHide };
    TKind fKind;
    QVector<int> fIndices;
    QVector<TBefore> fBefore; // one per item
    bool fChanged = false;
};
