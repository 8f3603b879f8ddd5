#pragma once

#include "commands/TCanvasItemsCommand.h"

class TCanvasYrexSpectrum;

/// What the command families of this module share: they see spectrum items only, and know which of them stands for all.
class TYrexItemsCommand : public TCanvasItemsCommand
{
    Q_OBJECT

public:
    /// Items of other types are left out.
    TYrexItemsCommand(const QString &description, const TCanvasItemList &items);

    void doCmdItem(TCanvasItem *item, int index) final;
    void undoCmdItem(TCanvasItem *item, int index) final;
    THistoryCommand *itemHistoryCommand(TCanvasItem *item) override;
    bool cmdItemApplicable(TCanvasItem *item) const final;

    virtual void doItem(TCanvasYrexSpectrum *item, int index) = 0;
    virtual void undoItem(TCanvasYrexSpectrum *item, int index) = 0;
    virtual bool isApplicable(TCanvasYrexSpectrum *) const { return true; }

    /// The last item that is selected for edit, else the first; null for a command without items. Not owned.
    TCanvasYrexSpectrum *mainItem() const { return fMainItem; }

protected:
    TCanvasYrexSpectrum *yrexItemAt(int index) const;

private:
    TCanvasYrexSpectrum *fMainItem = nullptr;
};
