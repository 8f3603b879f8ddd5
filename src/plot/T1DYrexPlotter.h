#pragma once

#include "plot/T1DStackedBasePlotter.h"

class T1DYrexPlot;

/// Draws what the plot of spectra decides to show.
class T1DYrexPlotter : public T1DStackedBasePlotter
{
public:
    explicit T1DYrexPlotter(T1DYrexPlot *plot);

    QUuid id() const override;
    QRectF getPlotCurvesRect() const override;
    /// The value at which nothing absorbs: 1 in transmittance, 100 in percent, 0 in any other unit.
    double baselineScaleValue() const override;

private:
    const T1DYrexPlot *fYrexPlot;
};
