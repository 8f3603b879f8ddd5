#pragma once

#include "canvas/TCanvasItemList.h"
#include "commands/TCommand.h"

#include <QRectF>
#include <QVector>

class TCanvasItem;
class TPage;

/// Moves items from their pages to another one.
class TCmdItemsToPage : public TCommand
{
    Q_OBJECT

public:
    /// One rectangle per item, in canvas units of the new page. Locked items, and those that stand on no page or on
    /// that one, stay.
    TCmdItemsToPage(const TCanvasItemList &items, TPage *page, const QVector<QRectF> &rects);

    TScriptStep scriptStep() const override;
    void doHistoryCommand() override;
    void doCmd() override;
    void undoCmd() override;
    bool isVoid() const override { return TCommand::isVoid() || fMoves.isEmpty(); }

private:
    struct TMove
    {
        TCanvasItem *item;
        QRectF rect;
        TPage *from;
        QRectF oldRect;
        int policy;
        int place; // among the items of the old page
    };
    QVector<TMove> fMoves;
    TPage *fPage;
};
