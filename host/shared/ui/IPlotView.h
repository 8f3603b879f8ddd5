#pragma once

#include "canvas/TCanvasItemList.h"
#include "ui/TMouseSpot.h"

#include <QTransform>

class QString;
class TCommandHistory;
struct TPlotReadout;

/// The view as mouse modes see it. Places of the view are logical pixels.
class IPlotView
{
public:
    virtual ~IPlotView() = default;
    virtual TMouseSpot spotAt(const QPointF &viewPos) const = 0;
    /// From an item's coordinates to the view.
    virtual QTransform itemToView(const TCanvasItem &item) const = 0;
    virtual TCommandHistory &history() = 0;
    /// Lets the mode and what else lies over the page be drawn anew; items keep their pixels.
    virtual void updateOverlay() = 0;
    virtual void showReadout(const TPlotReadout &readout) = 0;
    /// Highlights a curve of an item; -1 or no item: none.
    virtual void pointAt(TCanvasSpectrum *item, int curve) = 0;
    /// A click on an item makes it the active one; `extends` keeps the others and turns its selection over.
    virtual void selectItem(TCanvasItem *item, bool extends) = 0;
    /// The active spectrum of an item was changed, or which of its spectra are selected.
    virtual void stackChanged(TCanvasItem *item) = 0;
};
