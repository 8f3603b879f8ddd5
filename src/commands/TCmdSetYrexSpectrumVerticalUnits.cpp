#include "TCmdSetYrexSpectrumVerticalUnits.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexChainRules.h"
#include "TYrexUnits.h"
#include "stream/TDataStream.h"

#include <algorithm>

namespace {

QByteArray chainOf(const TYrexSpectrum &spectrum)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    spectrum.procParams().store(stream);
    return bytes;
}

int endUnit(const TYrexSpectrum &spectrum)
{
    return TYrexChainRules::endYUnit(spectrum.procParams().actions(), spectrum.origYUnits());
}

bool canTake(const TCanvasYrexSpectrum &item, int unit)
{
    const TYrexSpectrumList &spectra = item.spectra();
    return unit == cUnitArbitrary || std::all_of(spectra.begin(), spectra.end(), [unit](const TYrexSpectrum *spectrum) {
               const int end = endUnit(*spectrum);
               return end == unit || end == cUnitArbitrary;
           });
}

} // namespace

TCmdSetYrexSpectrumVerticalUnits::TCmdSetYrexSpectrumVerticalUnits(int unit, const TCanvasItemList &items)
    : TYrexUnitsCommand(tr("Set Zarnu Spec Vert Units to "), vertDir, unit, items)
    , fSnapshots(size_t(items.size()))
{
}

TScriptStep TCmdSetYrexSpectrumVerticalUnits::scriptStep() const
{
    return unitsStep("setYUnits");
}

bool TCmdSetYrexSpectrumVerticalUnits::cmdItemApplicable(TCanvasItem *item) const
{
    return TYrexUnitsCommand::cmdItemApplicable(item) && canTake(*yrexItem(item), unit());
}

QString TCmdSetYrexSpectrumVerticalUnits::refusal(int unit, const TCanvasItemList &items, bool *isNone)
{
    QStringList units;
    int taken = 0;
    for (ICanvasItem *entry : items) {
        const TCanvasYrexSpectrum *item = yrexItem(entry);
        if (!item || !item->currentSpectrum())
            continue;
        if (canTake(*item, unit)) {
            ++taken;
            continue;
        }
        for (const TYrexSpectrum *spectrum : item->spectra())
            units.append(yrexUnitDisplayName(endUnit(*spectrum)));
    }
    *isNone = taken == 0;
    units.removeDuplicates();
    if (units.isEmpty())
        return QString();
    const QString ends = units.join(QStringLiteral(", "));
    return *isNone ? tr("the spectra end in %1").arg(ends)
                   : tr("items whose spectra end in %1 keep their unit").arg(ends);
}

void TCmdSetYrexSpectrumVerticalUnits::doCommand(TCanvasItem *item, TBasePlot *plot)
{
    TCanvasYrexSpectrum &spectrumItem = *yrexItem(item);
    auto &shown = static_cast<T1DYrexPlot &>(*plot);
    const int xUnits = spectrumItem.currentSpectrum()->xUnits();
    bool hasRun = false;
    for (TYrexSpectrum *spectrum : spectrumItem.spectra()) {
        const int old = spectrum->yUnits();
        const bool isLabel = old == cUnitArbitrary || unit() == cUnitArbitrary || old == unit();
        const bool isOther = old != unit() || spectrum->xUnits() != xUnits;
        const QByteArray chain = isOther ? QByteArray() : chainOf(*spectrum);
        spectrum->setUnits(xUnits, unit());
        spectrum->process(isLabel ? cProcessOnlyAccept : cProcessForced, 0,
                          qMax(0, spectrum->procParams().actionCount() - 1));
        if (isOther || chainOf(*spectrum) != chain) // a chain that was not accepted before is now
            setChanged();
        hasRun = hasRun || !isLabel;
    }
    shown.setAxisUnits(vertDir, spectrumItem.currentSpectrum()->yUnits());
    if (hasRun)
        shown.keepCurveInView();
}

void TCmdSetYrexSpectrumVerticalUnits::undoCommand(TCanvasItem *, TBasePlot *plot, int itemIndex, int plotIndex)
{
    static_cast<T1DYrexPlot *>(plot)->setAxisUnits(vertDir, oldUnit(itemIndex, plotIndex));
}

void TCmdSetYrexSpectrumVerticalUnits::saveSpectra(TCanvasYrexSpectrum &item, int index)
{
    QByteArray state;
    item.storeDataState(state);
    fSnapshots[size_t(index)].take(std::move(state));
}

void TCmdSetYrexSpectrumVerticalUnits::restoreSpectra(TCanvasYrexSpectrum &item, int index)
{
    // running the chain again would not do: the data need not be those of a run
    item.restoreDataState(fSnapshots.at(size_t(index)).state());
}
