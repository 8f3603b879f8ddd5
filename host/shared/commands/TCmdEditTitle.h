#pragma once

#include "commands/TCanvasItemsCommand.h"

#include <QVariant>

/// Sets the title of a spectrum of an item to what a user typed.
class TCmdEditTitle : public TCanvasItemsCommand
{
    Q_OBJECT

public:
    /// `index` is the spectrum's; an item whose title cannot be edited is left alone.
    TCmdEditTitle(TCanvasItem *item, int index, const QString &title);

    TScriptStep scriptStep() const override;
    void doCmd() override;
    void doCmdItem(TCanvasItem *item, int index) override;
    void undoCmdItem(TCanvasItem *item, int index) override;
    bool cmdItemApplicable(TCanvasItem *item) const override;
    THistoryCommand *itemHistoryCommand(TCanvasItem *item) override;

private:
    int fSpectrum;
    QVariant fOther; // the title that the item has not now
    bool fChanged = false;
};
