#include "commands/TCmdStackedItemsDeletion.h"

#include "canvas/TCanvasItem.h"
#include "contexts/IStackedItemCtx.h"
#include "history/THistoryCommand.h"

#include <algorithm>

TCmdStackedItemsDeletion::TCmdStackedItemsDeletion(const TCanvasItemList &items, const QVector<int> &indices)
    : TCanvasItemsCommand(tr("Delete Spectra"), items)
    , fIndices(indices)
    , fBefore(items.size())
{
    std::sort(fIndices.begin(), fIndices.end(), std::greater<int>());
    fIndices.erase(std::unique(fIndices.begin(), fIndices.end()), fIndices.end());
}

bool TCmdStackedItemsDeletion::cmdItemApplicable(TCanvasItem *item) const
{
    return item->stackedContext() != nullptr;
}

void TCmdStackedItemsDeletion::doCmd()
{
    fChanged = false;
    TCanvasItemsCommand::doCmd();
    setVoidFlag(!fChanged);
}

void TCmdStackedItemsDeletion::doCmdItem(TCanvasItem *item, int index)
{
    IStackedItemCtx &stack = *item->stackedContext();
    TBefore &before = fBefore[index];
    before.stack.capture(stack);
    before.plots.capture(item);
    before.taken.clear();
    QVector<int> indices;
    for (const int each : qAsConst(fIndices)) {
        if (each >= 0 && each < stack.count())
            indices.append(each);
    }
    if (indices.size() == stack.count())
        indices.removeAll(stack.activeIndex());
    for (const int each : qAsConst(indices)) {
        TTaken taken{each, QByteArray()};
        if (stack.take(each, taken.bytes))
            before.taken.append(taken);
    }
    if (before.taken.isEmpty())
        return;
    fChanged = true;
    stack.update();
}

void TCmdStackedItemsDeletion::undoCmdItem(TCanvasItem *item, int index)
{
    IStackedItemCtx &stack = *item->stackedContext();
    const TBefore &before = fBefore.at(index);
    if (before.taken.isEmpty())
        return;
    for (int i = before.taken.size() - 1; i >= 0; --i)
        stack.insert(before.taken.at(i).index, before.taken.at(i).bytes);
    before.stack.restore(stack);
    before.plots.restore(item);
}

THistoryCommand *TCmdStackedItemsDeletion::itemHistoryCommand(TCanvasItem *item)
{
    auto *entry = new THistoryCommand(description(), item, QString());
    QVariantList numbers;
    for (int i = fIndices.size() - 1; i >= 0; --i)
        numbers.append(fIndices.at(i) + 1);
    entry->addParam("Spectra", numbers, QString());
    return entry;
}

TScriptStep TCmdStackedItemsDeletion::scriptStep() const
{
    return TScriptStep("deleteSpectra").on(items()).with("spectra", QVariant::fromValue(fIndices));
}
