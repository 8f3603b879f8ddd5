#pragma once

#include "commands/TCanvasItemsCommand.h"

#include <QVector>

/// Makes a spectrum of stacks the active one; a hidden one passes that on to the next visible one. Which one is active
/// is a way of looking at a stack, so there is nothing to save afterwards.
class TCmdActiveSpectrum : public TCanvasItemsCommand
{
    Q_OBJECT

public:
    TCmdActiveSpectrum(const TCanvasItemList &items, int index);

    bool isViewOnly() const override { return true; }
    void doCmd() override;
    void doCmdItem(TCanvasItem *item, int index) override;
    void undoCmdItem(TCanvasItem *item, int index) override;
    bool cmdItemApplicable(TCanvasItem *item) const override;
    THistoryCommand *itemHistoryCommand(TCanvasItem *item) override;

private:
    int fIndex;
    QVector<int> fBefore; // one per item
    bool fChanged = false;
};
