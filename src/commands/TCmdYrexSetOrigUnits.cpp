#include "TCmdYrexSetOrigUnits.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "YrexStepTargets.h"
#include "history/THistoryCommand.h"

TCmdYrexSetOrigUnits::TParamState TCmdYrexSetOrigUnits::paramState(const TYrexSpectrum &spectrum, int id)
{
    const TSpectrumParam *entry = spectrum.params().getParam(id);
    return entry ? TParamState{entry->value(0), entry->isEdited()} : TParamState();
}

void TCmdYrexSetOrigUnits::setParamState(TYrexSpectrum &spectrum, int id, const TParamState &state)
{
    if (TSpectrumParam *entry = spectrum.params().getParam(id)) {
        if (state.fText.isNull()) // it was never set
            entry->unset();
        else
            entry->setValue(0, state.fText);
        entry->setEdited(state.fEdited);
    }
}

TCmdYrexSetOrigUnits::TCmdYrexSetOrigUnits(const TCanvasItemList &items, TAxisDir axis, int unit, TTargets targets)
    : TYrexVoidUnlessChanged(axis == horzDir ? tr("Set Zarnu Original X Units") : tr("Set Zarnu Original Y Units"),
                             items)
    , fAxis(axis)
    , fUnit(unit)
    , fTargets(targets)
    , fOld(TCanvasItemsCommand::items().size())
    , fPlots(TCanvasItemsCommand::items().size())
{
}

TCmdYrexSetOrigUnits::TCmdYrexSetOrigUnits(const TCanvasItemList &items, TAxisDir axis, int unit,
                                           const QVector<QVector<int>> &targets)
    : TCmdYrexSetOrigUnits(items, axis, unit, cGivenSpectra)
{
    fGiven = targets;
}

TScriptStep TCmdYrexSetOrigUnits::scriptStep() const
{
    TScriptStep step = TScriptStep("setOriginalUnits").on(items());
    step.with(fAxis == horzDir ? "xUnits" : "yUnits", yrexUnitScriptName(fUnit));
    QVector<QVector<int>> indices;
    for (int i = 0; i < items().size(); ++i)
        indices.append(targets(*yrexItemAt(i), i));
    YrexStepTargets::tell(step, items(), indices);
    return step;
}

int TCmdYrexSetOrigUnits::origParam() const
{
    return fAxis == horzDir ? TSpectrumParam::cOrigXUnits : TSpectrumParam::cOrigYUnits;
}

int TCmdYrexSetOrigUnits::param() const
{
    return fAxis == horzDir ? TSpectrumParam::cXUnits : TSpectrumParam::cYUnits;
}

QVector<int> TCmdYrexSetOrigUnits::targets(const TCanvasYrexSpectrum &item, int index) const
{
    if (fTargets == cGivenSpectra)
        return fGiven.value(index);
    QVector<int> indices;
    if (fTargets == cCurrentSpectrum && item.currentSpectrum())
        indices.append(item.stack().current());
    if (fTargets == cUsedSpectra && item.currentSpectrum())
        indices = item.stack().selectedIndices(false, true);
    for (int i = 0; fTargets == cAllSpectra && i < item.stack().count(); ++i)
        indices.append(i);
    return indices;
}

void TCmdYrexSetOrigUnits::showUnits(TCanvasYrexSpectrum *item) const
{
    T1DYrexPlot *plot = item->activeYrexPlot();
    const TYrexSpectrum *spectrum = item->currentSpectrum();
    if (plot && spectrum)
        plot->relabelUnits(fAxis, fAxis == horzDir ? spectrum->xUnits() : spectrum->yUnits());
    item->update();
}

void TCmdYrexSetOrigUnits::doItem(TCanvasYrexSpectrum *item, int index)
{
    QVector<TUnits> &old = fOld[index];
    old.clear();
    fPlots[index].capture(item);
    for (const int specIndex : targets(*item, index)) {
        TYrexSpectrum &spectrum = *item->stack().at(specIndex);
        old.append({specIndex, spectrum.origXUnits(), spectrum.origYUnits(), spectrum.xUnits(), spectrum.yUnits(),
                    paramState(spectrum, origParam()), paramState(spectrum, param())});
        const int x = fAxis == horzDir ? fUnit : spectrum.origXUnits();
        const int y = fAxis == horzDir ? spectrum.origYUnits() : fUnit;
        spectrum.setOrigUnits(x, y);
        spectrum.setUnits(x, y);
        const TParamState named{yrexUnitDisplayName(fUnit), true};
        const TUnits &was = old.last();
        if (was.fOrigX != x || was.fOrigY != y || was.fX != x || was.fY != y || !isSame(was.fOrigParam, named) ||
            !isSame(was.fParam, named))
            noteChange();
        setParamState(spectrum, origParam(), named);
        setParamState(spectrum, param(), named);
    }
    showUnits(item);
}

void TCmdYrexSetOrigUnits::undoItem(TCanvasYrexSpectrum *item, int index)
{
    for (const TUnits &units : qAsConst(fOld.at(index))) {
        TYrexSpectrum *spectrum = item->stack().at(units.fIndex);
        if (!spectrum)
            continue;
        spectrum->setOrigUnits(units.fOrigX, units.fOrigY);
        spectrum->setUnits(units.fX, units.fY);
        setParamState(*spectrum, origParam(), units.fOrigParam);
        setParamState(*spectrum, param(), units.fParam);
    }
    fPlots.at(index).restore(item);
    item->update();
}

THistoryCommand *TCmdYrexSetOrigUnits::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    entry->addParam(tr("Zarnu Spectrum"), item->title(false), QString());
    entry->addParam(fAxis == horzDir ? tr("X Units") : tr("Y Units"), yrexUnitDisplayName(fUnit), QString());
    return entry;
}
