#pragma once

#include "commands/TCanvasItemsCommand.h"

#include <QVector>

/// Brings items to the front of their pages, or sends them to the back; among themselves they keep their order.
class TCmdItemOrder : public TCanvasItemsCommand
{
    Q_OBJECT

public:
    enum TTarget { cToFront, cToBack };

    TCmdItemOrder(const TCanvasItemList &items, TTarget target);

    TScriptStep scriptStep() const override;
    void doCmd() override;
    void doCmdItem(TCanvasItem *item, int index) override;
    void undoCmdItem(TCanvasItem *item, int index) override;
    bool cmdItemApplicable(TCanvasItem *item) const override;
    THistoryCommand *itemHistoryCommand(TCanvasItem *item) override;

private:
    TTarget fTarget;
    QVector<int> fPlaces; // one per item, when its turn came
    bool fChanged = false;
};
