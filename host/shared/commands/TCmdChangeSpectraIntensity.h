#pragma once

#include "commands/TStackValuesCommand.h"

/// Scales spectra: all of them against the axis, or single ones of a stack against the others.
class TCmdChangeSpectraIntensity : public TStackValuesCommand
{
    Q_OBJECT

public:
    /// By TBasePlot::cDefIntensityFactor times `factor`, or by its inverse, on every plot of the items.
    TCmdChangeSpectraIntensity(const TCanvasItemList &items, bool up, double factor);
    /// Factors by the index of the spectrum. They act in drawing; the data stay.
    TCmdChangeSpectraIntensity(const TCanvasItemList &items, const QMap<int, double> &factors);
    TScriptStep scriptStep() const override;

protected:
    void changeView(TCanvasSpectrum &item, TBasePlot &activePlot) override;
    double stackValue(const T1DStackedPlotProperties &properties, quint32 id) const override;
    void setStackValue(T1DStackedPlotProperties &properties, quint32 id, double value) const override;
    void describe(THistoryCommand &entry) const override;

private:
    bool fUp = true;
    double fFactor = 1.0;
};
