#pragma once

#include "commands/TStackValuesCommand.h"

/// Moves spectra: the view of all of them, or single ones of a stack against the others.
class TCmdPanSpectra : public TStackValuesCommand
{
    Q_OBJECT

public:
    /// By canvas units, positive right and up.
    TCmdPanSpectra(const TCanvasItemList &items, double dx, double dy);
    /// Vertical offsets in y units, by the index of the spectrum. They act in drawing; the data stay.
    TCmdPanSpectra(const TCanvasItemList &items, const QMap<int, double> &offsets);
    TScriptStep scriptStep() const override;
    /// Where one item came to: how far canvas units lead depends on how the plot was laid out at that time.
    void completeScriptStep(TScriptStep &step) const override;

protected:
    void changeView(TCanvasSpectrum &item, TBasePlot &activePlot) override;
    double stackValue(const T1DStackedPlotProperties &properties, quint32 id) const override;
    void setStackValue(T1DStackedPlotProperties &properties, quint32 id, double value) const override;
    void describe(THistoryCommand &entry) const override;

private:
    double fDeltaX = 0.0;
    double fDeltaY = 0.0;
};
