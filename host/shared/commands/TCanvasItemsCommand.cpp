#include "commands/TCanvasItemsCommand.h"

#include "canvas/TCanvasItem.h"

TCanvasItemsCommand::TCanvasItemsCommand(const QString &description, const TCanvasItemList &items, int flags)
    : TCommand(description)
    , fItems(items)
    , fFlags(flags)
{
}

void TCanvasItemsCommand::repaint()
{
    if (!(fFlags & cRepaint))
        return;
    for (ICanvasItem *item : qAsConst(fItems)) {
        if (item)
            canvasItem(item)->update();
    }
}

void TCanvasItemsCommand::doCmd()
{
    for (int i = 0; i < fItems.size(); ++i) {
        TCanvasItem *item = canvasItem(fItems.at(i));
        if (item && cmdItemApplicable(item))
            doCmdItem(item, i);
    }
    repaint();
}

void TCanvasItemsCommand::undoCmd()
{
    for (int i = fItems.size() - 1; i >= 0; --i) {
        TCanvasItem *item = canvasItem(fItems.at(i));
        if (item && cmdItemApplicable(item))
            undoCmdItem(item, i);
    }
    repaint();
}

void TCanvasItemsCommand::doHistoryCommand()
{
    for (ICanvasItem *entry : qAsConst(fItems)) {
        TCanvasItem *item = canvasItem(entry);
        if (item && cmdItemApplicable(item))
            appendHistoryCommand(itemHistoryCommand(item), item);
    }
}

bool TCanvasItemsCommand::mergeCommand(TCommand *next)
{
    return TCommand::mergeCommand(next) && static_cast<TCanvasItemsCommand *>(next)->fItems == fItems;
}
