#include "TCmdYrexItemStateChanged.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "YrexStepWords.h"
#include "history/THistoryCommand.h"

namespace {

QString descriptionOf(int kind)
{
    switch (kind) {
    case TCmdYrexItemStateChanged::cCycleActive:
        return TCmdYrexItemStateChanged::tr("Cycle Active Spectrum");
    case TCmdYrexItemStateChanged::cStackedMode:
        return TCmdYrexItemStateChanged::tr("Set Stacked Mode");
    case TCmdYrexItemStateChanged::cSetActive:
        return TCmdYrexItemStateChanged::tr("Set Active Spectrum");
    default:
        return QString();
    }
}

int knownMode(int value)
{
    switch (value) {
    case stackedMode:
    case overlayMode:
    case bitmapMode:
    case hiddenLinesMode:
    case queuedMode:
    case groupedMode:
        return value;
    default:
        return activeOnlyMode;
    }
}

} // namespace

TCmdYrexItemStateChanged::TCmdYrexItemStateChanged(int kind, const QVariant &value, const TCanvasItemList &items)
    : TYrexSpectrumCommand(descriptionOf(kind), items)
    , fKind(kind)
    , fValue(value)
    , fOldValues(TCanvasItemsCommand::items().size())
    , fPlots(TCanvasItemsCommand::items().size())
{
}

TCmdYrexItemStateChanged::TCmdYrexItemStateChanged(const QVector<int> &active, const TCanvasItemList &items)
    : TCmdYrexItemStateChanged(cSetActive, active.value(0), items)
{
    fActive = active;
}

int TCmdYrexItemStateChanged::nextActive(const TCanvasYrexSpectrum &item) const
{
    if (fKind == cCycleActive)
        return item.stack().isEmpty() ? -1 : stepFrom(item);
    return fActive.isEmpty() ? fValue.toInt()
                             : fActive.value(items().indexOf(const_cast<TCanvasYrexSpectrum *>(&item)));
}

TScriptStep TCmdYrexItemStateChanged::scriptStep() const
{
    if (fKind == cStackedMode)
        return TScriptStep("setDisplayMode")
            .on(items())
            .with("display", YrexStepWords::displayMode(knownMode(fValue.toInt())));
    QVariantList active;
    for (int i = 0; i < items().size(); ++i)
        active.append(nextActive(*yrexItemAt(i)));
    const bool isOne = active.count(active.value(0)) == active.size();
    return TScriptStep("setActiveSpectrum").on(items()).with("spectrum", isOne ? active.value(0) : QVariant(active));
}

bool TCmdYrexItemStateChanged::isApplicable(TCanvasYrexSpectrum *item) const
{
    if (fKind == cSetActive)
        return item->stack().contains(nextActive(*item));
    return fKind == cStackedMode ? item->activeYrexPlot() != nullptr : !item->stack().isEmpty();
}

void TCmdYrexItemStateChanged::doCmd()
{
    fChanged = false;
    fUpdates = false;
    TYrexSpectrumCommand::doCmd();
    setVoidFlag(!fChanged);
}

void TCmdYrexItemStateChanged::setMode(TCanvasYrexSpectrum *item, int index)
{
    IStackedItemCtx &stack = *item->stackedContext();
    fPlots[index].capture(item);
    fOldValues[index] = stack.displayMode();
    const int mode = knownMode(fValue.toInt());
    if (mode == stack.displayMode())
        return;
    stack.setDisplayMode(mode);
    stack.refit(); // rows may be spectra or classes
    fChanged = true;
}

void TCmdYrexItemStateChanged::setActive(TCanvasYrexSpectrum *item, int index, int active)
{
    fOldValues[index] = item->stack().current();
    item->stack().setCurrent(active);
    fChanged = fChanged || item->stack().current() != fOldValues.at(index).toInt();
}

int TCmdYrexItemStateChanged::stepFrom(const TCanvasYrexSpectrum &item) const
{
    const TYrexStack &stack = item.stack();
    const int count = stack.count();
    const int step = fValue.toBool() ? 1 : count - 1;
    int next = stack.current();
    for (int i = 0; i < count; ++i) { // with every spectrum deselected it ends where it began
        next = (next + step) % count;
        if (!stack.isDeselected(next) && !stack.isHidden(next))
            return next;
    }
    return next;
}

void TCmdYrexItemStateChanged::doItem(TCanvasYrexSpectrum *item, int index)
{
    const int mode = item->stackedContext()->displayMode();
    setMergeableFlag(true);
    switch (fKind) {
    case cStackedMode:
        setMode(item, index);
        break;
    case cSetActive:
        fUpdates = mode == activeOnlyMode || mode == overlayMode || mode == groupedMode;
        setActive(item, index, nextActive(*item));
        break;
    case cCycleActive:
        fUpdates = item->isStacked();
        setActive(item, index, stepFrom(*item));
        break;
    default:
        item->stackedContext()->refit();
        break;
    }
    if (fUpdates)
        item->update();
}

void TCmdYrexItemStateChanged::undoItem(TCanvasYrexSpectrum *item, int index)
{
    if (fKind == cStackedMode) {
        item->stackedContext()->setDisplayMode(fOldValues.at(index).toInt()); // the grouping goes with the mode
        fPlots.at(index).restore(item);
    } else if (fKind == cSetActive || fKind == cCycleActive) {
        item->stack().setCurrent(fOldValues.at(index).toInt());
    }
    item->update();
}

THistoryCommand *TCmdYrexItemStateChanged::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    entry->setViewOnly(isViewOnly());
    const QVariant old = fOldValues.value(items().indexOf(item));
    if (fKind == cStackedMode)
        entry->addChange(tr("Mode"), item->stackedContext()->displayMode(), old);
    else
        entry->addChange(tr("Spectrum"), item->stackedContext()->title(item->stack().current()),
                         item->stackedContext()->title(old.toInt()));
    return entry;
}
