#include "TCmdYrexEditPeak.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexStepValues.h"
#include "history/THistoryCommand.h"

TCmdYrexEditPeak::TCmdYrexEditPeak(int peakIndex, int peakField, const QVariant &value, const TCanvasItemList &items,
                                   const TYrexSpectrumPlaces &places)
    : TYrexVoidUnlessChanged(tr("Edit Peak"), items)
    , fPlaces(places.orCurrentOf(items))
    , fPeakIndex(peakIndex)
    , fPeakField(peakField)
    , fValue(TCanvasItemsCommand::items().size(), value)
    , fFlags(fValue.size(), 0)
{
}

bool TCmdYrexEditPeak::isApplicable(TCanvasYrexSpectrum *item) const
{
    const TYrexSpectrum *spectrum = fPlaces.spectrum(item);
    return spectrum && fPeakIndex >= 0 && fPeakIndex < spectrum->peaks().size();
}

void TCmdYrexEditPeak::doItem(TCanvasYrexSpectrum *item, int index)
{
    if (fPeakField != cAnnotation)
        return;
    TYrexDPLib::TYrexDPPeak &peak = *fPlaces.spectrum(item)->peaks().at(fPeakIndex);
    fFlags[index] = peak.flags;
    swapAnnotation(peak, index);
    if (!peak.annotation.isEmpty())
        peak.flags &= ~TYrexDPLib::cAutoPicked;
    if (peak.annotation != fValue.at(index).toString())
        noteChange();
    else
        peak.flags = fFlags.at(index);
}

void TCmdYrexEditPeak::undoItem(TCanvasYrexSpectrum *item, int index)
{
    if (fPeakField != cAnnotation)
        return;
    TYrexDPLib::TYrexDPPeak &peak = *fPlaces.spectrum(item)->peaks().at(fPeakIndex);
    swapAnnotation(peak, index);
    peak.flags = fFlags.at(index);
}

void TCmdYrexEditPeak::swapAnnotation(TYrexDPLib::TYrexDPPeak &peak, int index)
{
    const QVariant before = peak.annotation;
    peak.annotation = fValue.at(index).toString();
    fValue[index] = before;
}

THistoryCommand *TCmdYrexEditPeak::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    entry->addParam(tr("Peak"), fPeakIndex + 1, QString());
    entry->addParam(tr("Annotation"), fPlaces.spectrum(item)->peaks().at(fPeakIndex)->annotation, QString());
    return entry;
}

TScriptStep TCmdYrexEditPeak::scriptStep() const
{
    if (fPeakField != cAnnotation || items().isEmpty())
        return TScriptStep();
    TScriptStep step("annotatePeak");
    step.on(items()).with("peak", fPeakIndex);
    if (!fValue.first().toString().isNull())
        step.with("annotation", fValue.first().toString());
    return YrexStepValues::withSpectrum(step, fPlaces, items());
}
