#pragma once

#include "canvas/TCanvasItemList.h"
#include "plot/TAxisDir.h"

#include <QPointF>
#include <QVariantMap>

class TCommandHistory;

/// Steps of the view that the mouse and the keyboard share. Each pushes one command.
namespace PlotSteps {

/// Shows `factor` times as much of the axes of a mask (TAxisDir bits), what stands at an item point staying there. The
/// horizontal axis does not go beyond its data.
void zoomAbout(TCommandHistory &history, const TCanvasItemList &items, const QPointF &itemPos, double factor, int mask);
/// Moves the view by a share of the curves rectangle, positive to the right and up along the axes.
void panBy(TCommandHistory &history, const TCanvasItemList &items, double shareX, double shareY);
/// Makes the spectrum so many places further on among the visible ones of the first item's stack the active one.
/// Whether there is a stack to step through.
bool stepActive(TCommandHistory &history, const TCanvasItemList &items, int places);
/// Sets fields of the items' properties by their keys, as one step; keys that an item has not are passed over.
bool setProperties(TCommandHistory &history, const TCanvasItemList &items, const QVariantMap &fields);
/// Draws the rows of the items' stacks apart, or together for a factor below 1.
bool changeSpacing(TCommandHistory &history, const TCanvasItemList &items, double factor);

} // namespace PlotSteps
