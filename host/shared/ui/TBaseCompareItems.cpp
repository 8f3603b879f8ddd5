#include "ui/TBaseCompareItems.h"

#include "plot/T1DStackedPlot.h"
#include "plot/TTitleProperties.h"

void TBaseCompareItems::applyStackedPlotFlags(T1DStackedPlot &plot, int flags)
{
    plot.setStackedDisplayMode(flags & cStacked ? stackedMode : overlayMode);
    if (flags & cNormalisedHeights)
        return;
    T1DStackedPlotProperties &properties = plot.stackedProperties();
    for (const quint32 id : properties.factors().keys())
        properties.setFactor(id, 1.0);
}

void TBaseCompareItems::applyTitlePlotFlags(TTitleProperties &title, int flags)
{
    title.visible = flags & cTitles;
    title.stacked = true;
}
