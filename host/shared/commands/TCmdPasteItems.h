#pragma once

#include "canvas/TCanvasItemList.h"
#include "commands/TCommand.h"

#include <QByteArray>

class TPage;

/// Puts copies of items on a page. While it is undone it owns them.
class TCmdPasteItems : public TCommand
{
    Q_OBJECT

public:
    static constexpr double cStep = 50.0; // canvas units by which a copy stands aside of what is there

    /// `fragment` as TItemFragment writes it; void for damaged bytes and for a null page.
    TCmdPasteItems(const QByteArray &fragment, TPage *page);
    ~TCmdPasteItems() override;

    const TCanvasItemList &items() const { return fItems; }

    TScriptStep scriptStep() const override { return TScriptStep("insertItems"); }
    void completeScriptStep(TScriptStep &step) const override;
    void doHistoryCommand() override;
    void doCmd() override;
    void undoCmd() override;
    bool isVoid() const override { return TCommand::isVoid() || fItems.isEmpty(); }

private:
    TCanvasItemList fItems;
    TPage *fPage;
};
