#include "TYrexSpectrumListCommand.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"

TYrexSpectrumListCommand::TYrexSpectrumListCommand(const QString &description, const TCanvasItemList &items)
    : TYrexSpectrumCommand(description, items)
    , fSnapshots(size_t(TCanvasItemsCommand::items().size()))
    , fPlots(TCanvasItemsCommand::items().size())
{
}

QVector<int> TYrexSpectrumListCommand::targetsIn(const TCanvasYrexSpectrum &item) const
{
    const TYrexStack &stack = item.stack();
    if (fCurrentOnly)
        return item.currentSpectrum() ? QVector<int>{stack.current()} : QVector<int>();
    const bool anySelected = !stack.selectedIndices(false, false).isEmpty();
    QVector<int> found;
    for (const int target : stack.selectedIndices(false, true)) {
        const bool isMeant =
            anySelected ? stack.contains(target) && !stack.isDeselected(target) : target == stack.current();
        if ((!fSelectionOnly || isMeant) && stack.at(target))
            found.append(target);
    }
    return found;
}

QVector<QVector<int>> TYrexSpectrumListCommand::targets() const
{
    QVector<QVector<int>> all = fSpectra;
    for (int i = 0; fSpectra.isEmpty() && i < items().size(); ++i)
        all.append(targetsIn(*yrexItemAt(i)));
    return all;
}

void TYrexSpectrumListCommand::applyToTargets(TCanvasYrexSpectrum *item, int index)
{
    for (const int target : fSpectra.isEmpty() ? targetsIn(*item) : fSpectra.value(index)) {
        if (TYrexSpectrum *spectrum = item->stack().at(target))
            applyToSpectrum(item, index, spectrum, target);
    }
}

void TYrexSpectrumListCommand::doItem(TCanvasYrexSpectrum *item, int index)
{
    if (!item)
        return;
    fPlots[index].capture(item);
    saveItem(item, index);
    applyToTargets(item, index);
    item->update();
}

void TYrexSpectrumListCommand::undoItem(TCanvasYrexSpectrum *item, int index)
{
    if (!item)
        return;
    restoreItem(item, index);
    fPlots.at(index).restore(item); // units and scales followed the spectra, which may have got other ids since
    item->update();
}

void TYrexSpectrumListCommand::finishItem(TCanvasYrexSpectrum *item, int, bool)
{
    T1DYrexPlot *plot = item->activeYrexPlot();
    const TYrexSpectrum *spectrum = item->currentSpectrum();
    if (!plot || !spectrum)
        return;
    plot->changeUnits(horzDir, spectrum->xUnits(), false);
    plot->changeUnits(vertDir, spectrum->yUnits(), false);
}

void TYrexSpectrumListCommand::saveItem(TCanvasYrexSpectrum *item, int index)
{
    QByteArray state;
    item->storeDataState(state);
    fSnapshots[size_t(index)].take(std::move(state));
}

void TYrexSpectrumListCommand::restoreItem(TCanvasYrexSpectrum *item, int index)
{
    item->restoreDataState(fSnapshots.at(size_t(index)).state());
}
