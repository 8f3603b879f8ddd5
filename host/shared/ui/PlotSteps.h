#pragma once

#include "canvas/TCanvasItemList.h"
#include "plot/TAxisDir.h"

#include <QPointF>

class TCommandHistory;

/// Steps of the view that the mouse and the keyboard share. Each pushes one command.
namespace PlotSteps {

/// Shows `factor` times as much of the axes of a mask (TAxisDir bits), what stands at an item point staying there. The
/// horizontal axis does not go beyond its data.
void zoomAbout(TCommandHistory &history, const TCanvasItemList &items, const QPointF &itemPos, double factor, int mask);
/// Moves the view by a share of the curves rectangle, positive to the right and up along the axes.
void panBy(TCommandHistory &history, const TCanvasItemList &items, double shareX, double shareY);
/// Makes the spectrum so many places further on among the visible ones of a stack the active one.
bool stepActive(TCanvasItemList &items, int places);

} // namespace PlotSteps
