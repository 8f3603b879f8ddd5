#pragma once

#include "plot/TBasePlotter.h"
#include "plot/TPlotHotArea.h"

#include <QPointF>

class TBasePlot;
class TCanvasItem;
class TCanvasSpectrum;

/// What is under the mouse.
struct TMouseSpot
{
    TCanvasItem *item = nullptr;
    TCanvasSpectrum *spectrum = nullptr; // the item, when it is one with plots
    TBasePlot *plot = nullptr;
    QPointF viewPos; // logical pixels of the view
    QPointF pagePos; // canvas units
    QPointF itemPos; // canvas units from the item's top left corner
    QPointF scalePos;
    TPlotHotArea area;
    TPlotPlace place = placeOutside;
    bool inCurves = false;
    bool onTitle = false; // the plot's own or that of a row
};
