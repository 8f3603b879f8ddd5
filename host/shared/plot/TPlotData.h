#pragma once

#include "plot/TRanges.h"
#include <QVector>

/// The view of a plot, to come back to: scales, full scales and visible ranges of its axes, and how far curves were
/// scaled by hand.
struct TPlotData
{
    struct TAxisView
    {
        TRange scale;
        TRange fullScale;
        TRanges ranges;
        bool operator==(const TAxisView &other) const
        {
            return scale == other.scale && fullScale == other.fullScale && ranges == other.ranges;
        }
    };

    QVector<TAxisView> axes; // in the order in which the plot stores them
    double intensityFactor = 1.0;

    bool isValid() const { return !axes.isEmpty(); }
    bool operator==(const TPlotData &other) const
    {
        return axes == other.axes && intensityFactor == other.intensityFactor;
    }
};
