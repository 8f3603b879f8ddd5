#include "TSimple1DYrexPlotter.h"

#include "T1DYrexPlotter.h"

TSimple1DYrexPlotter::TSimple1DYrexPlotter(const T1DYrexPlotter &plotter, int yUnits)
    : T1DBasePlotter(plotter)
    , fYUnits(yUnits)
{
    unsetStackMatrix();
}

QUuid TSimple1DYrexPlotter::id() const
{
    // {c1e77a40-0f52-4c0a-8a3e-52d90b6e7f33}
    return QUuid(0xc1e77a40, 0x0f52, 0x4c0a, 0x8a, 0x3e, 0x52, 0xd9, 0x0b, 0x6e, 0x7f, 0x33);
}

double TSimple1DYrexPlotter::baselineScaleValue() const
{
    return T1DYrexPlotter::baselineOf(fYUnits);
}
