#include "T1DYrexPlotter.h"

#include "T1DYrexPlot.h"
#include "TYrexUnits.h"

T1DYrexPlotter::T1DYrexPlotter(T1DYrexPlot *plot)
    : T1DStackedBasePlotter(plot)
    , fYrexPlot(plot)
{
}

QUuid T1DYrexPlotter::id() const
{
    // {5b4a5c0e-6a0f-4f0b-9d57-0a6f1b0c7d21}
    return QUuid(0x5b4a5c0e, 0x6a0f, 0x4f0b, 0x9d, 0x57, 0x0a, 0x6f, 0x1b, 0x0c, 0x7d, 0x21);
}

QRectF T1DYrexPlotter::getPlotCurvesRect() const
{
    return adjustPlotCurvesRectToTitle(T1DStackedBasePlotter::getPlotCurvesRect(), fYrexPlot->titleProperties());
}

double T1DYrexPlotter::baselineScaleValue() const
{
    if (fYrexPlot->yUnits() == cUnitTransmittance)
        return 1.0;
    return fYrexPlot->yUnits() == cUnitPercentTransmittance ? 100.0 : 0.0;
}
