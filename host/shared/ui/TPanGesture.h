#pragma once

#include "canvas/TSecurePtr.h"
#include "plot/TPlotData.h"
#include "ui/TMouseSpot.h"

class TCommand;

/// A drag that moves the curves live. What it did is put back at its end, for a command to do it as one step.
class TPanGesture
{
public:
    /// `mask`: TAxisDir bits of the directions that move.
    void start(const TMouseSpot &spot, int mask);
    void moveTo(const QPointF &itemPos);
    bool isActive() const { return bool(fItem); }
    TCanvasItem *item() const { return fItem.get(); }
    /// The step as a command, which the caller owns; null when nothing moved.
    TCommand *finish();
    void cancel();

private:
    TBasePlot *plot() const;

    TSecurePtr<TCanvasItem> fItem;
    TPlotData fStartView;
    QPointF fStart;
    QPointF fDelta; // canvas units, right and up
    int fMask = 0;
};
