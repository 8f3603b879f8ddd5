#pragma once

#include "commands/TViewCommand.h"

/// Fits the vertical axis of spectra to what can be seen of them.
class TCmdFitSpectraIntensityToHeight : public TViewCommand
{
    Q_OBJECT

public:
    explicit TCmdFitSpectraIntensityToHeight(const TCanvasItemList &items);
    TScriptStep scriptStep() const override;

protected:
    void changeView(TCanvasSpectrum &item, TBasePlot &activePlot) override;
};
