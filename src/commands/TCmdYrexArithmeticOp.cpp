#include "TCmdYrexArithmeticOp.h"

#include "TCanvasYrexSpectrum.h"
#include "YrexStepTargets.h"
#include "history/THistoryCommand.h"
#include "plot/TTypesetter.h"

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
        fAxis = TYrexAxis(*spectrum);
        fReference = spectrum->values();
        fReferenceTitle = reference->title(false);
        if (fReferenceTitle.trimmed().isEmpty()) // an untitled one goes by its file
            fReferenceTitle = TTypesetter::plainText(reference->spectrumTitle(index));
    }
    const TCanvasItemList &own = TCanvasItemsCommand::items();
    setVoidFlag(
        std::none_of(own.begin(), own.end(), [this](ICanvasItem *item) { return isApplicable(yrexItem(item)); }));
}

bool TCmdYrexArithmeticOp::isApplicable(TCanvasYrexSpectrum *item) const
{
    const TYrexSpectrum *spectrum = item->currentSpectrum();
    return spectrum && fAxis.fCount > 0 && spectrum->pointCount() == fAxis.fCount;
}

/// The spectra that are changed, by item.
QVector<QVector<int>> TCmdYrexArithmeticOp::reached() const
{
    QVector<QVector<int>> all;
    for (int i = 0; i < items().size(); ++i) {
        TCanvasYrexSpectrum *item = yrexItemAt(i);
        QVector<int> own = cmdItemApplicable(item) ? targetsOf(item, i) : QVector<int>();
        const auto isPassedOver = [&](int index) {
            const TYrexSpectrum *spectrum = item->stack().at(index);
            return !spectrum || !fits(*spectrum);
        };
        own.erase(std::remove_if(own.begin(), own.end(), isPassedOver), own.end());
        all.append(own);
    }
    return all;
}

/// How their x differ from those of the reference; empty when they are the same.
QString TCmdYrexArithmeticOp::axisDifference() const
{
    const QVector<QVector<int>> indices = reached();
    QVector<TYrexAxis> axes;
    for (int i = 0; i < indices.size(); ++i) {
        for (const int index : indices.at(i))
            axes.append(TYrexAxis(*yrexItemAt(i)->stack().at(index)));
    }
    return TYrexAxis::difference(axes, fAxis);
}

bool TCmdYrexArithmeticOp::fits(const TYrexSpectrum &spectrum) const
{
    return spectrum.pointCount() == fAxis.fCount && spectrum.values().size() >= fAxis.fCount;
}

/// A plain loop: those of BLAS libraries round otherwise where the machine has fused operations.
void TCmdYrexArithmeticOp::addMultiple(int n, double factor, const double *x, double *y)
{
    for (int i = 0; i < n; ++i)
        y[i] += factor * x[i];
}

void TCmdYrexArithmeticOp::applyToSpectrum(TCanvasYrexSpectrum *, int, TYrexSpectrum *spectrum, int)
{
    if (!fits(*spectrum))
        return; // others of the stack may be shorter
    addMultiple(fAxis.fCount, fFactor, fReference.constData(), spectrum->data());
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
    YrexStepTargets::tell(step, items(), reached()); // others would be refused
    if (!axisDifference().isEmpty())
        step.with("pointByPoint", true);
    return step;
}

void TCmdYrexArithmeticOp::undoItem(TCanvasYrexSpectrum *item, int index)
{
    TYrexListCommand::undoItem(item, index);
    fHistoryText = fPreviousHistoryText;
}

void TCmdYrexArithmeticOp::doHistoryCommand()
{
    const QString difference = axisDifference();
    for (ICanvasItem *listed : items()) {
        TCanvasItem *item = canvasItem(listed);
        if (!cmdItemApplicable(item))
            continue;
        auto *entry = new THistoryCommand(description(), item, QString());
        entry->addParam(tr("Reference"), fReferenceTitle, QString());
        entry->addParam(tr("Factor"), QString("%1").arg(std::abs(fFactor), 0, 'g', -1, QLatin1Char(' ')), QString());
        if (!difference.isEmpty())
            entry->addParam(tr("Point by Point"), difference, QString());
        appendHistoryCommand(entry, item);
    }
}
