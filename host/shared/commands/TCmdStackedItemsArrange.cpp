#include "commands/TCmdStackedItemsArrange.h"

#include "canvas/TCanvasItem.h"
#include "contexts/IStackedItemCtx.h"
#include "history/THistoryCommand.h"

TCmdStackedItemsArrange::TCmdStackedItemsArrange(const TCanvasItemList &items, const QVector<int> &order)
    : TCanvasItemsCommand(tr("Arrange Spectra"), items)
    , fKind(cOrder)
    , fIndices(order)
    , fBefore(items.size())
{
}

TCmdStackedItemsArrange::TCmdStackedItemsArrange(const TCanvasItemList &items, const QVector<int> &indices,
                                                 bool visible)
    : TCanvasItemsCommand(visible ? tr("Show Spectra") : tr("Hide Spectra"), items)
    , fKind(visible ? cShow : cHide)
    , fIndices(indices)
    , fBefore(items.size())
{
}

bool TCmdStackedItemsArrange::cmdItemApplicable(TCanvasItem *item) const
{
    return item->stackedContext() != nullptr;
}

bool TCmdStackedItemsArrange::arrange(IStackedItemCtx &stack) const
{
    if (fKind == cOrder) {
        const QVector<int> before = stack.order();
        stack.move(fIndices);
        return stack.order() != before;
    }
    bool changed = false;
    for (const int index : fIndices) {
        const bool isLast = fKind == cHide && stack.visibleOrder().size() <= 1;
        if (index < 0 || index >= stack.count() || stack.isVisible(index) == (fKind == cShow) || isLast)
            continue;
        stack.setVisible(index, fKind == cShow);
        changed = true;
    }
    if (changed)
        stack.makeCurrent(stack.activeIndex()); // a hidden spectrum is not the active one
    return changed;
}

void TCmdStackedItemsArrange::doCmd()
{
    fChanged = false;
    TCanvasItemsCommand::doCmd();
    setVoidFlag(!fChanged);
}

void TCmdStackedItemsArrange::doCmdItem(TCanvasItem *item, int index)
{
    IStackedItemCtx &stack = *item->stackedContext();
    fBefore[index].stack.capture(stack);
    fBefore[index].plots.capture(item);
    if (!arrange(stack))
        return;
    fChanged = true;
    stack.update();
}

void TCmdStackedItemsArrange::undoCmdItem(TCanvasItem *item, int index)
{
    fBefore.at(index).stack.restore(*item->stackedContext());
    fBefore.at(index).plots.restore(item);
}

THistoryCommand *TCmdStackedItemsArrange::itemHistoryCommand(TCanvasItem *item)
{
    auto *entry = new THistoryCommand(description(), item, QString());
    QVariantList numbers;
    for (const int index : fIndices)
        numbers.append(index + 1);
    entry->addParam("Spectra", numbers, QString());
    return entry;
}

TScriptStep TCmdStackedItemsArrange::scriptStep() const
{
    if (fKind == cOrder)
        return TScriptStep("arrangeSpectra").on(items()).with("order", QVariant::fromValue(fIndices));
    return TScriptStep(fKind == cShow ? "showSpectra" : "hideSpectra")
        .on(items())
        .with("spectra", QVariant::fromValue(fIndices));
}
