#pragma once

#include "commands/TCanvasItemsCommand.h"

#include <QRectF>
#include <QVector>

/// Moves or resizes items on their pages. An item that was placed by hand no longer follows its page.
class TCmdMoveItem : public TCanvasItemsCommand
{
    Q_OBJECT

public:
    /// One rectangle per item, in canvas units. Items without one, with an empty or endless one, and locked items stay.
    TCmdMoveItem(const TCanvasItemList &items, const QVector<QRectF> &rects);

    TScriptStep scriptStep() const override;
    void doCmdItem(TCanvasItem *item, int index) override;
    void undoCmdItem(TCanvasItem *item, int index) override;
    bool cmdItemApplicable(TCanvasItem *item) const override;
    THistoryCommand *itemHistoryCommand(TCanvasItem *item) override;
    bool isVoid() const override;

private:
    struct TPlace
    {
        QRectF rect;
        int policy = 0;
    };

    QVector<TPlace> fNew; // an empty rectangle: the item stays
    QVector<TPlace> fOld;
};
