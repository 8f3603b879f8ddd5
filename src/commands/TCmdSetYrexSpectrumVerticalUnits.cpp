#include "TCmdSetYrexSpectrumVerticalUnits.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "stream/TDataStream.h"

namespace {

QByteArray chainOf(const TYrexSpectrum &spectrum)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    spectrum.procParams().store(stream);
    return bytes;
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

void TCmdSetYrexSpectrumVerticalUnits::doCommand(TCanvasItem *item, TBasePlot *plot)
{
    TCanvasYrexSpectrum &spectrumItem = *yrexItem(item);
    auto &shown = static_cast<T1DYrexPlot &>(*plot);
    shown.setAxisUnits(vertDir, unit());
    const int xUnits = spectrumItem.currentSpectrum()->xUnits();
    bool hasRun = false;
    for (TYrexSpectrum *spectrum : spectrumItem.spectra()) {
        const int old = spectrum->yUnits();
        const bool isLabel = old == cUnitArbitrary || unit() == cUnitArbitrary || old == unit();
        const bool isOther = old != unit() || spectrum->xUnits() != xUnits;
        const QByteArray chain = isOther ? QByteArray() : chainOf(*spectrum);
        spectrum->setUnits(xUnits, unit());
        spectrum->process(isLabel ? cProcessOnlyAccept : 0, 0, 0);
        if (isOther || chainOf(*spectrum) != chain) // a chain that was not accepted before is now
            setChanged();
        hasRun = hasRun || !isLabel;
    }
    shown.setAxisUnits(vertDir, unit()); // once more: its label is that of the spectra
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
    // running the chain anew would not do: it runs the first action only
    item.restoreDataState(fSnapshots.at(size_t(index)).state());
}
