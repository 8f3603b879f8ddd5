#pragma once

#include "canvas/TViewHistoryEntry.h"
#include "commands/TCanvasItemsCommand.h"

#include <QVector>

class TBasePlot;
class TCanvasSpectrum;

/// A command that changes how items are seen and nothing that they hold. Undo puts back the views as they were before
/// the first do step. A command after which every view is what it was is void.
class TViewCommand : public TCanvasItemsCommand
{
    Q_OBJECT

public:
    TViewCommand(const QString &description, const TCanvasItemList &items);

    void doCmd() override;
    void doCmdItem(TCanvasItem *item, int index) override;
    void undoCmdItem(TCanvasItem *item, int index) override;
    bool cmdItemApplicable(TCanvasItem *item) const override;
    bool isViewOnly() const override { return true; }
    THistoryCommand *itemHistoryCommand(TCanvasItem *item) override;

protected:
    virtual void changeView(TCanvasSpectrum &item, TBasePlot &activePlot) = 0;
    virtual void describe(THistoryCommand &) const {}

private:
    QVector<TViewHistoryEntry> fViews;    // one per item, before the first do step
    QVector<TViewHistoryEntry> fNewViews; // behind it: a way in canvas units would lead elsewhere in another plot area
    QVector<bool> fPushed;
    bool fChanged = false;
};
