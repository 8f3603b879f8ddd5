#include "TCmdSetYrexSpectrumHorizontalUnits.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"

#include <algorithm>

TCmdSetYrexSpectrumHorizontalUnits::TCmdSetYrexSpectrumHorizontalUnits(int unit, const TCanvasItemList &items,
                                                                       bool useOriginal)
    : TYrexUnitsCommand(tr("Set Zarnu Spec Horz Units to "), horzDir, unit, items)
    , fBefore(items.size())
    , fUseOriginal(useOriginal)
{
}

bool TCmdSetYrexSpectrumHorizontalUnits::spansZero(const TCanvasYrexSpectrum &item, int unit)
{
    const TYrexSpectrumList &spectra = item.spectra();
    return std::any_of(spectra.begin(), spectra.end(), [unit](const TYrexSpectrum *spectrum) {
        constexpr double cProbe = 7.0; // any place that a conversion moves
        return yrexConvertX(cProbe, spectrum->origXUnits(), unit) != cProbe &&
               spectrum->firstX() * spectrum->lastX() < 0.0;
    });
}

bool TCmdSetYrexSpectrumHorizontalUnits::cmdItemApplicable(TCanvasItem *item) const
{
    return TYrexUnitsCommand::cmdItemApplicable(item) && !spansZero(*yrexItem(item), unit());
}

TScriptStep TCmdSetYrexSpectrumHorizontalUnits::scriptStep() const
{
    TScriptStep step = unitsStep("setXUnits");
    if (fUseOriginal)
        step.with("original", true);
    return step;
}

void TCmdSetYrexSpectrumHorizontalUnits::doCommand(TCanvasItem *item, TBasePlot *plot)
{
    TYrexSpectrum *spectrum = yrexItem(item)->currentSpectrum();
    const bool isOther = shownUnit(*plot) != unit();
    if (spectrum && yrexIsHorizontalUnit(unit()) && (isOther || spectrum->xUnits() != unit())) {
        setChanged();
        spectrum->setParamValue(TSpectrumParam::cXUnits, 1, yrexUnitDisplayName(unit()));
    }
    if (fUseOriginal || isOther) // else the view stays as the user left it
        static_cast<T1DYrexPlot *>(plot)->changeUnits(horzDir, unit(), fUseOriginal);
}

void TCmdSetYrexSpectrumHorizontalUnits::undoCommand(TCanvasItem *, TBasePlot *plot, int itemIndex, int plotIndex)
{
    static_cast<T1DYrexPlot *>(plot)->changeUnits(horzDir, oldUnit(itemIndex, plotIndex), fUseOriginal);
}

void TCmdSetYrexSpectrumHorizontalUnits::saveSpectra(TCanvasYrexSpectrum &item, int index)
{
    const TYrexSpectrum &spectrum = *item.currentSpectrum();
    const TSpectrumParam *param = spectrum.params().getParam(TSpectrumParam::cXUnits);
    fBefore[index] = {item.stack().current(), spectrum.xUnits(), param ? param->value(0) : QString(),
                      param && param->isEdited()};
}

void TCmdSetYrexSpectrumHorizontalUnits::restoreSpectra(TCanvasYrexSpectrum &item, int index)
{
    const TBefore &before = fBefore.at(index);
    TYrexSpectrum *spectrum = item.stack().at(before.fIndex);
    if (!spectrum)
        return;
    spectrum->setUnits(before.fXUnits, spectrum->yUnits());
    if (TSpectrumParam *param = spectrum->params().getParam(TSpectrumParam::cXUnits)) {
        if (before.fText.isNull()) // it was never set
            param->unset();
        else
            param->setValue(0, before.fText);
        param->setEdited(before.fEdited);
    }
}
