#pragma once

#include "canvas/TCanvasItemList.h"
#include "commands/TCommand.h"

class TCanvasItem;

/// A command that does the same to each of its items. Items are walked in list order, for undo in reverse; only those
/// that cmdItemApplicable accepts at that moment are touched, and the index handed over is the place in the list,
/// skipped items counted.
class TCanvasItemsCommand : public TCommand
{
    Q_OBJECT

public:
    enum TFlag { cRepaint = 1 }; // the items' pages are told afterwards

    TCanvasItemsCommand(const QString &description, const TCanvasItemList &items, int flags = cRepaint);

    TCanvasItemList &items() { return fItems; }
    const TCanvasItemList &items() const { return fItems; }

    void doCmd() override;
    void undoCmd() override;
    void doHistoryCommand() override;
    /// Of the base, and on the same items.
    bool mergeCommand(TCommand *next) override;

    virtual void doCmdItem(TCanvasItem *, int) {}
    virtual void undoCmdItem(TCanvasItem *, int) {}
    /// The history entry of an item, which the command takes over; null for none.
    virtual THistoryCommand *itemHistoryCommand(TCanvasItem *) { return nullptr; }
    virtual bool cmdItemApplicable(TCanvasItem *) const { return true; }

private:
    void repaint();

    TCanvasItemList fItems;
    int fFlags;
};
