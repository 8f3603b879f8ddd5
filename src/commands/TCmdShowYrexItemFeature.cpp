#include "TCmdShowYrexItemFeature.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "YrexStepWords.h"
#include "history/THistoryCommand.h"

namespace {

/// The feature's bit; 0 for a number that is none.
quint32 flagOf(int feature)
{
    switch (feature) {
    case TCmdShowYrexItemFeature::cIntegralLabels:
        return TYrexIntegralPlotProperties::cShowLabels;
    case TCmdShowYrexItemFeature::cIntegrals:
        return TYrexIntegralPlotProperties::cShowIntegrals;
    case TCmdShowYrexItemFeature::cIntegralCurves:
        return TYrexIntegralPlotProperties::cShowCurve;
    default:
        return 0;
    }
}

QString descriptionOf(int feature, bool show)
{
    switch (feature) {
    case TCmdShowYrexItemFeature::cIntegralLabels:
        return show ? TCmdShowYrexItemFeature::tr("Show Zarnu Integral Labels")
                    : TCmdShowYrexItemFeature::tr("Hide Zarnu Integral Labels");
    case TCmdShowYrexItemFeature::cIntegrals:
        return show ? TCmdShowYrexItemFeature::tr("Show Zarnu Integrals")
                    : TCmdShowYrexItemFeature::tr("Hide Zarnu Integrals");
    case TCmdShowYrexItemFeature::cIntegralCurves:
        return show ? TCmdShowYrexItemFeature::tr("Show Zarnu Integral Curves")
                    : TCmdShowYrexItemFeature::tr("Hide Zarnu Integral Curves");
    default:
        return QString();
    }
}

} // namespace

TCmdShowYrexItemFeature::TCmdShowYrexItemFeature(int feature, const TCanvasItemList &items)
    : TYrexSpectrumCommand(QString(), items)
    , fFeature(feature)
    , fShow(!isShown(mainItem(), feature))
    , fOldStates(TCanvasItemsCommand::items().size(), 0)
{
    setDescription(descriptionOf(feature, fShow));
}

TCmdShowYrexItemFeature::TCmdShowYrexItemFeature(int feature, bool show, const TCanvasItemList &items)
    : TCmdShowYrexItemFeature(feature, items)
{
    fShow = show;
    setDescription(descriptionOf(feature, show));
}

TScriptStep TCmdShowYrexItemFeature::scriptStep() const
{
    return TScriptStep("showFeature")
        .on(items())
        .with("feature", YrexStepWords::features().value(fFeature))
        .with("show", fShow);
}

bool TCmdShowYrexItemFeature::isShown(const TCanvasYrexSpectrum *item, int feature)
{
    const T1DYrexPlot *plot = item ? item->activeYrexPlot() : nullptr;
    return plot && (plot->integralProperties().flags & flagOf(feature));
}

void TCmdShowYrexItemFeature::show(TCanvasYrexSpectrum *item, int feature, bool on)
{
    quint32 &flags = item->activeYrexPlot()->integralProperties().flags;
    flags = on ? flags | flagOf(feature) : flags & ~flagOf(feature);
    item->update();
}

bool TCmdShowYrexItemFeature::isApplicable(TCanvasYrexSpectrum *item) const
{
    return item->activeYrexPlot();
}

void TCmdShowYrexItemFeature::doCmd()
{
    fChanged = false;
    TYrexSpectrumCommand::doCmd();
    setVoidFlag(!fChanged);
}

void TCmdShowYrexItemFeature::doItem(TCanvasYrexSpectrum *item, int index)
{
    if (index < 0 || index >= fOldStates.size())
        return;
    fOldStates[index] = isShown(item, fFeature);
    show(item, fFeature, fShow);
    fChanged = fChanged || isShown(item, fFeature) != bool(fOldStates.at(index));
}

void TCmdShowYrexItemFeature::undoItem(TCanvasYrexSpectrum *item, int index)
{
    if (index >= 0 && index < fOldStates.size())
        show(item, fFeature, fOldStates.at(index));
}

THistoryCommand *TCmdShowYrexItemFeature::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    entry->addChange(tr("Show"), fShow, bool(fOldStates.value(items().indexOf(item))));
    return entry;
}
