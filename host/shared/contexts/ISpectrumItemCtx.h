#pragma once

#include "plot/TAxisDir.h"
#include "plot/TRange.h"

#include <QRectF>

/// The steps by which the view of a spectrum item changes. They act at once and leave nothing to undo: commands wrap
/// them. Scale units are those that the axis shows.
class ISpectrumItemCtx
{
public:
    virtual ~ISpectrumItemCtx() = default;

    /// Everything in view, hidden ranges kept.
    virtual void fullZoomOut() = 0;
    virtual void fitToHeight() = 0;
    /// Scales the curves by TBasePlot::cDefIntensityFactor times `factor`, or by its inverse.
    virtual void changeIntensity(bool up, double factor) = 0;
    /// Shows a rectangle in scale units. A rectangle without width (height) leaves that axis alone; without both it is
    /// the full view.
    virtual void zoom(const QRectF &rect) = 0;
    /// Shows a stretch of one axis, which keeps its direction whatever the order of the limits.
    virtual void zoom(TAxisDir dir, double from, double to) = 0;
    virtual void hideRange(const TRange &range) = 0;
    virtual void showRange(const TRange &range) = 0;
    /// Gives all hidden ranges back.
    virtual void restoreRanges() = 0;
    /// Moves the curves by canvas units, positive right and up.
    virtual void pan(double dx, double dy) = 0;
};
