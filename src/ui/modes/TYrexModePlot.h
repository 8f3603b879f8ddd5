#pragma once

#include "T1DYrexPlotter.h"

#include <QPolygonF>
#include <QTransform>
#include <optional>

class IPlotView;
class TCanvasItem;
class TCanvasYrexSpectrum;
class TYrexSpectrum;

/// The active spectrum of an item as mouse modes see it: between pixels of the view and x in the unit that is shown,
/// values, and points of the data. It reads the plot as it was drawn last, and is made anew for each event.
class TYrexModePlot
{
public:
    /// The spectrum in its own row or column of a stack. An item of another type, or without a spectrum that has
    /// points, gives one that is not valid and must not be asked.
    TYrexModePlot(TCanvasItem *item, const IPlotView &view);
    /// In the row or column under a place of the view; beside all of them in its own.
    TYrexModePlot(TCanvasItem *item, const IPlotView &view, const QPointF &viewPos);

    bool isValid() const { return fPlot; }
    TCanvasYrexSpectrum *item() const { return fItem; }
    T1DYrexPlot *plot() const { return fPlot; }
    TYrexSpectrum *spectrum() const;
    const T1DYrexPlotter &plotter() const { return *fPlotter; }
    const QTransform &itemToView() const { return fMap; }
    int xUnits() const;

    /// Where the curves stand, in pixels; of a queue the column alone.
    QRectF curves() const;
    /// The shown x at a place, which is held within the curves.
    double xAt(const QPointF &viewPos) const;
    /// The value that the spectrum has where it is drawn at the height of a place.
    double valueAt(const QPointF &viewPos) const;
    /// The pixel column of an x, held within the curves; one that is hidden stands at the limit next to it.
    double columnOf(double x) const;
    /// Where a value at an x is drawn; false for what is hidden or out of the curves.
    bool toView(double x, double value, QPointF &viewPos) const;
    /// Where a value stands on the vertical axis; an overlay may scale and shift its curves.
    double heightOf(double value) const { return fHeights(value); }
    /// The pixel row of a value, not held within the curves.
    double rowOf(double value) const;

    /// The point of the data at an x, fractional, and back.
    double pointAt(double x) const;
    double xOf(double point) const;
    /// The curve between two points of the data, from pixel to pixel; dense data by their extremes.
    QPolygonF curveBetween(double from, double to) const;
    /// The least value within so many pixels of a place, as x.
    double lowestXNear(const QPointF &viewPos, double reach) const;

    /// Numbers with the digits that tell two pixels apart.
    QString xText(double x) const;
    QString valueText(double value) const;

private:
    int ownRow() const;
    int rowAt(const QPointF &itemPos) const;
    double mapY(double y) const;

    TCanvasYrexSpectrum *fItem = nullptr;
    T1DYrexPlot *fPlot = nullptr;
    std::optional<T1DYrexPlotter> fPlotter; // a copy, set to the row
    QTransform fMap;
    TLinearMap fHeights; // from values to heights on the axis
};
