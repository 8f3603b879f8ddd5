#pragma once

#include "canvas/TCanvasItemList.h"
#include "commands/TCommand.h"

class TCanvasItem;
class TPage;

/// Takes items off their pages. While it is done it owns them.
class TCmdDeleteItems : public TCommand
{
    Q_OBJECT

public:
    /// Locked items, and items that stand on no page, are left alone.
    explicit TCmdDeleteItems(const TCanvasItemList &items);
    ~TCmdDeleteItems() override;

    void doHistoryCommand() override;
    TScriptStep scriptStep() const override;
    void doCmd() override;
    void undoCmd() override;
    bool isVoid() const override { return TCommand::isVoid() || fTaken.isEmpty(); }

private:
    struct TTaken
    {
        TCanvasItem *item;
        TPage *page;
        int place; // among the page's items
    };
    QList<TTaken> fTaken; // in the order in which they go
};
