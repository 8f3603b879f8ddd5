#include "TYrexItemsCommand.h"

#include "TCanvasYrexSpectrum.h"
#include "history/THistoryCommand.h"

TYrexItemsCommand::TYrexItemsCommand(const QString &description, const TCanvasItemList &items)
    : TCanvasItemsCommand(description, items, cRepaint)
{
    TCanvasItemList &kept = TCanvasItemsCommand::items();
    kept.clear();
    for (ICanvasItem *entry : items) {
        TCanvasYrexSpectrum *item = yrexItem(entry);
        if (!item)
            continue;
        kept.append(item);
        if (!fMainItem || item->isSelectedForEdit())
            fMainItem = item;
    }
}

TCanvasYrexSpectrum *TYrexItemsCommand::yrexItemAt(int index) const
{
    return yrexItem(items().value(index));
}

void TYrexItemsCommand::doCmdItem(TCanvasItem *item, int index)
{
    doItem(yrexItem(item), index);
}

void TYrexItemsCommand::undoCmdItem(TCanvasItem *item, int index)
{
    undoItem(yrexItem(item), index);
}

bool TYrexItemsCommand::cmdItemApplicable(TCanvasItem *item) const
{
    TCanvasYrexSpectrum *spectrumItem = yrexItem(item);
    return spectrumItem && isApplicable(spectrumItem);
}

THistoryCommand *TYrexItemsCommand::itemHistoryCommand(TCanvasItem *item)
{
    auto *entry = new THistoryCommand(description(), item, QString());
    entry->setParent(this);
    return entry;
}
