#include "TCmdYrexArithmeticOp.h"

#include "TCanvasYrexSpectrum.h"
#include "history/THistoryCommand.h"

#include <algorithm>
#include <cmath>

TCmdYrexArithmeticOp::TCmdYrexArithmeticOp(const TCanvasItemList &items, TCanvasYrexSpectrum *reference, double factor)
    : TCmdYrexArithmeticOp(items, reference, reference ? reference->stack().current() : -1, factor)
{
}

TCmdYrexArithmeticOp::TCmdYrexArithmeticOp(const TCanvasItemList &items, TCanvasYrexSpectrum *reference, int index,
                                           double factor)
    : TYrexListCommand(tr("Zarnu Subtract/Add Spectra"), items)
    , fFactor(factor)
    , fReferenceItem(TScriptStep::item(reference))
    , fReferenceIndex(index)
{
    // the values and not the item: a redo gives what the first run gave, whatever became of the reference
    const TYrexSpectrum *spectrum = reference ? reference->stack().at(index) : nullptr;
    if (spectrum && spectrum->values().size() >= spectrum->pointCount()) {
        fPointCount = spectrum->pointCount();
        fReference = spectrum->values();
        fReferenceTitle = reference->title(false);
    }
    const TCanvasItemList &own = TCanvasItemsCommand::items();
    setVoidFlag(
        std::none_of(own.begin(), own.end(), [this](ICanvasItem *item) { return isApplicable(yrexItem(item)); }));
}

bool TCmdYrexArithmeticOp::isApplicable(TCanvasYrexSpectrum *item) const
{
    const TYrexSpectrum *spectrum = item->currentSpectrum();
    return spectrum && fPointCount > 0 && spectrum->pointCount() == fPointCount;
}

/// A plain loop: those of BLAS libraries round otherwise where the machine has fused operations.
void TCmdYrexArithmeticOp::addMultiple(int n, double factor, const double *x, double *y)
{
    for (int i = 0; i < n; ++i)
        y[i] += factor * x[i];
}

void TCmdYrexArithmeticOp::applyToSpectrum(TCanvasYrexSpectrum *, int, TYrexSpectrum *spectrum, int)
{
    if (spectrum->pointCount() != fPointCount || spectrum->values().size() < fPointCount)
        return; // others of the stack may be shorter
    addMultiple(fPointCount, fFactor, fReference.constData(), spectrum->data());
    spectrum->copyDataToOrgData();
    spectrum->setOrgDataModified(true);
    fPreviousHistoryText = fHistoryText;
    fHistoryText = fFactor > 0.0 ? tr("Spectrum (reference) added times a Factor")
                                 : tr("Spectrum (reference) subtracted times a Factor");
    setDescription(fHistoryText.toString());
}

TScriptStep TCmdYrexArithmeticOp::scriptStep() const
{
    TScriptStep step = TScriptStep("addSpectrum").on(items());
    step.with("reference", fReferenceItem).with("referenceSpectrum", fReferenceIndex).with("factor", fFactor);
    tellTargets(step);
    return step;
}

void TCmdYrexArithmeticOp::undoItem(TCanvasYrexSpectrum *item, int index)
{
    TYrexListCommand::undoItem(item, index);
    fHistoryText = fPreviousHistoryText;
}

void TCmdYrexArithmeticOp::doHistoryCommand()
{
    for (ICanvasItem *listed : items()) {
        TCanvasItem *item = canvasItem(listed);
        if (!cmdItemApplicable(item))
            continue;
        auto *entry = new THistoryCommand(description(), item, QString());
        entry->addParam(tr("Reference"), fReferenceTitle, QString());
        entry->addParam(tr("Factor"), QString("%1").arg(std::abs(fFactor), 0, 'g', -1, QLatin1Char(' ')), QString());
        appendHistoryCommand(entry, item);
    }
}
