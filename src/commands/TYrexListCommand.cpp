#include "TYrexListCommand.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "YrexStepTargets.h"

TYrexListCommand::TYrexListCommand(const QString &description, const TCanvasItemList &items)
    : TYrexCommand(description, items)
    , fSnapshots(size_t(TCanvasItemsCommand::items().size()))
    , fPlots(TCanvasItemsCommand::items().size())
{
}

void TYrexListCommand::doItem(TCanvasYrexSpectrum *item, int index)
{
    saveItem(item, index);
    for (const int specIndex : targetsOf(item, index)) {
        if (TYrexSpectrum *spectrum = item->stack().at(specIndex))
            applyToSpectrum(item, index, spectrum, specIndex);
    }
    finishItem(item, index, false);
    item->update();
}

QVector<int> TYrexListCommand::targetsOf(const TCanvasYrexSpectrum *item, int index) const
{
    return fTargets.isEmpty() ? item->stack().selectedIndices(false, true) : fTargets.value(index);
}

void TYrexListCommand::tellTargets(TScriptStep &step) const
{
    QVector<QVector<int>> targets;
    for (int i = 0; i < items().size(); ++i)
        targets.append(targetsOf(yrexItemAt(i), i));
    YrexStepTargets::tell(step, items(), targets);
}

void TYrexListCommand::undoItem(TCanvasYrexSpectrum *item, int index)
{
    restoreItem(item, index);
    fPlots.at(index).restore(item); // labels and scales followed the spectra
    item->update();
}

void TYrexListCommand::finishItem(TCanvasYrexSpectrum *item, int, bool refreshed)
{
    T1DYrexPlot *plot = item->activeYrexPlot();
    if (!plot)
        return;
    item->refreshAxes();
    if (refreshed)
        plot->keepCurveInView();
}

void TYrexListCommand::saveItem(TCanvasYrexSpectrum *item, int index)
{
    if (!fIsTakenOver || !fSnapshots[size_t(index)]) { // one that the predecessor passed over has none
        QByteArray state;
        item->storeFullState(state);
        fSnapshots[size_t(index)] = std::make_shared<TYrexSnapshot>();
        fSnapshots[size_t(index)]->take(std::move(state));
    }
    fPlots[index].capture(item);
}

void TYrexListCommand::takeFrom(TCommand &predecessor)
{
    const auto *last = dynamic_cast<const TYrexListCommand *>(&predecessor);
    if (!last || last->items() != items())
        return;
    fSnapshots = last->fSnapshots;
    fIsTakenOver = true;
}

void TYrexListCommand::restoreItem(TCanvasYrexSpectrum *item, int index)
{
    fIsTakenOver = false; // what is done again may find other items
    item->restoreFullState(fSnapshots.at(size_t(index))->state());
}

qint64 TYrexListCommand::snapshotBytes() const
{
    qint64 bytes = 0;
    for (const std::shared_ptr<TYrexSnapshot> &snapshot : fSnapshots)
        bytes += snapshot ? snapshot->bytes() : 0;
    return bytes;
}
