#pragma once

#include "commands/TScriptStep.h"

#include <QVector>

class T1DYrexPlot;

/// Where the integrals of a plot stand, as the commands keep it for undo. All are fractions of the height of the area
/// in which curves stand.
struct TYrexIntegralBand
{
    double fRangeMargin = 0.0; // of the row of segments and labels, from the bottom
    double fCurveMargin = 0.0; // of the curves' base, from the top
    double fCurveMaxHeight = 0.0;

    static TYrexIntegralBand of(T1DYrexPlot &plot);
    /// Gives the places to a plot, held within the area. Whether that changed any.
    bool giveTo(T1DYrexPlot &plot) const;
    /// The step that brings the plots of items from the bands that they had to those that they have now; items without
    /// a plot are left out.
    static TScriptStep scriptStep(const TCanvasItemList &items, const QVector<TYrexIntegralBand> &before);
};
