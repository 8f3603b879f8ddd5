#pragma once

#include "plot/T1DBasePlotter.h"

class T1DYrexPlotter;

/// Draws one plain curve into the axes of a plot of spectra as it stands when this is made: no rows, no title's room.
class TSimple1DYrexPlotter : public T1DBasePlotter
{
public:
    TSimple1DYrexPlotter(const T1DYrexPlotter &plotter, int yUnits);

    QUuid id() const override;
    /// Of the unit that the plot had.
    double baselineScaleValue() const override;

private:
    int fYUnits;
};
