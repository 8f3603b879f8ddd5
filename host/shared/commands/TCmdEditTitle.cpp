#include "commands/TCmdEditTitle.h"

#include "canvas/TCanvasItem.h"
#include "history/THistoryCommand.h"

TCmdEditTitle::TCmdEditTitle(TCanvasItem *item, int index, const QString &title)
    : TCanvasItemsCommand(tr("Edit Title"), TCanvasItemList{item})
    , fSpectrum(index)
    , fOther(title)
{
}

bool TCmdEditTitle::cmdItemApplicable(TCanvasItem *item) const
{
    return !item->titleToEdit(fSpectrum).isNull();
}

void TCmdEditTitle::doCmd()
{
    fChanged = false;
    TCanvasItemsCommand::doCmd();
    setVoidFlag(!fChanged);
}

void TCmdEditTitle::doCmdItem(TCanvasItem *item, int)
{
    const QString before = item->titleToEdit(fSpectrum);
    fOther = item->swapTitle(fSpectrum, fOther);
    fChanged = item->titleToEdit(fSpectrum) != before;
}

void TCmdEditTitle::undoCmdItem(TCanvasItem *item, int)
{
    fOther = item->swapTitle(fSpectrum, fOther);
}

THistoryCommand *TCmdEditTitle::itemHistoryCommand(TCanvasItem *item)
{
    auto *entry = new THistoryCommand(description(), item, QString());
    entry->addParam(tr("Title"), item->titleToEdit(fSpectrum), QString());
    return entry;
}

TScriptStep TCmdEditTitle::scriptStep() const
{
    return TScriptStep("setTitle").on(items()).with("spectrum", fSpectrum).with("title", fOther);
}
