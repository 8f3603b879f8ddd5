#include "TCmdYrexArithmeticSetOrgDataToAbsOrg.h"

#include "TCanvasYrexSpectrum.h"
#include "history/THistoryCommand.h"

#include <algorithm>

TCmdYrexArithmeticSetOrgDataToAbsOrg::TCmdYrexArithmeticSetOrgDataToAbsOrg(const TCanvasItemList &items)
    : TYrexListCommand(tr("Zarnu Arithmetic Op"), items)
{
    const TCanvasItemList &own = TCanvasItemsCommand::items();
    setVoidFlag(
        std::none_of(own.begin(), own.end(), [this](ICanvasItem *item) { return isApplicable(yrexItem(item)); }));
}

bool TCmdYrexArithmeticSetOrgDataToAbsOrg::isApplicable(TCanvasYrexSpectrum *item) const
{
    return item->currentSpectrum() != nullptr;
}

void TCmdYrexArithmeticSetOrgDataToAbsOrg::applyToSpectrum(TCanvasYrexSpectrum *, int index, TYrexSpectrum *spectrum,
                                                           int specIndex)
{
    const QPair<int, int> place(index, specIndex);
    const TFigures now{spectrum->mscIntercept(), spectrum->mscSlope(), spectrum->pqnFactor()};
    const TFigures figures = fFigures.value(place, now);
    fFigures.insert(place, figures);
    spectrum->setMscCoefficients(figures.fIntercept, figures.fSlope);
    spectrum->setPqnFactor(figures.fFactor);
    spectrum->resetOrgDataToAbsOrgData();
    spectrum->setOrgDataModified(false);
    spectrum->process(cProcessForced, 0, qMax(0, spectrum->procParams().actionCount() - 1));
    fPreviousHistoryText = fHistoryText;
    fHistoryText = tr("Spectrum data reset to absolute original data");
    setDescription(fHistoryText.toString());
}

TScriptStep TCmdYrexArithmeticSetOrgDataToAbsOrg::scriptStep() const
{
    TScriptStep step = TScriptStep("restoreOriginalData").on(items());
    tellTargets(step);
    return step;
}

void TCmdYrexArithmeticSetOrgDataToAbsOrg::undoItem(TCanvasYrexSpectrum *item, int index)
{
    TYrexListCommand::undoItem(item, index);
    fHistoryText = fPreviousHistoryText;
}

void TCmdYrexArithmeticSetOrgDataToAbsOrg::doHistoryCommand()
{
    for (ICanvasItem *listed : items()) {
        TCanvasItem *item = canvasItem(listed);
        if (cmdItemApplicable(item))
            appendHistoryCommand(new THistoryCommand(description(), item, QString()), item);
    }
}
