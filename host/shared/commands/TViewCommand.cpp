#include "commands/TViewCommand.h"

#include "canvas/TCanvasSpectrum.h"
#include "history/THistoryCommand.h"

TViewCommand::TViewCommand(const QString &description, const TCanvasItemList &items)
    : TCanvasItemsCommand(description, items)
    , fViews(items.size())
    , fNewViews(items.size())
    , fPushed(items.size(), false)
{
}

bool TViewCommand::cmdItemApplicable(TCanvasItem *item) const
{
    const auto *spectrum = dynamic_cast<const TCanvasSpectrum *>(item);
    return spectrum && spectrum->activePlot();
}

void TViewCommand::doCmd()
{
    fChanged = false;
    TCanvasItemsCommand::doCmd();
    setVoidFlag(!fChanged);
}

void TViewCommand::doCmdItem(TCanvasItem *item, int index)
{
    auto *spectrum = static_cast<TCanvasSpectrum *>(item);
    if (fViews.at(index).isEmpty())
        item->captureView(fViews[index]);
    fPushed[index] = item->pushView(description(), isMergeable());
    if (fNewViews.at(index).isEmpty()) {
        changeView(*spectrum, *spectrum->activePlot());
        item->captureView(fNewViews[index]);
    } else {
        item->restoreView(fNewViews.at(index));
    }
    if (fNewViews.at(index) != fViews.at(index)) {
        fChanged = true;
        return;
    }
    if (fPushed.at(index))
        item->popView(); // a view that did not change is none to come back to
    fPushed[index] = false;
}

void TViewCommand::undoCmdItem(TCanvasItem *item, int index)
{
    item->restoreView(fViews.at(index));
    if (fPushed.at(index))
        item->popView();
}

THistoryCommand *TViewCommand::itemHistoryCommand(TCanvasItem *item)
{
    auto *entry = new THistoryCommand(description(), item, QString());
    entry->setViewOnly(true);
    describe(*entry);
    return entry;
}
