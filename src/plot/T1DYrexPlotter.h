#pragma once

#include "TYrexDPLib.h"
#include "TYrexIntegralPainter.h"
#include "TYrexPeakPainter.h"
#include "plot/T1DStackedBasePlotter.h"

class T1DYrexPlot;
class TYrexIntegrationRegions;

/// A visible stretch of an axis, and where it stands in the curves rectangle.
struct TYrexVisiblePiece
{
    TRange values; // ascending
    TRange places; // ascending
};

/// Draws what the plot of spectra decides to show.
class T1DYrexPlotter : public T1DStackedBasePlotter
{
public:
    explicit T1DYrexPlotter(T1DYrexPlot *plot);

    QUuid id() const override;
    QRectF getPlotCurvesRect() const override;
    /// Leaves the strip of the peak labels free, so that no curve runs through a label.
    QRectF adjustedPlotArea() const override;
    /// The value at which nothing absorbs: 1 in transmittance, 100 in percent, 0 in any other unit.
    double baselineScaleValue() const override;
    static double baselineOf(int yUnits);
    TBasePlotter *createSimplePlotter() const override;

    /// Segments, curves and labels of integrals; the bounds of the regions and `xUnits` are what is shown. `y` ascends
    /// in the stored x, whose first and last value are `xRange`. `hits`, when not null, gets the rectangles.
    void drawIntegrals(QPainter &painter, const TYrexIntegrationRegions &regions, const T1DPlotData<double> &y,
                       const TRange &xRange, const TYrexIntegralPlotProperties &properties, int yUnits,
                       TYrexIntegralHits *hits, int storedXUnits, int xUnits) const;
    /// Labels of peaks, with the plot's peak properties; `hits`, when not null, gets the rectangle of each label.
    void drawPeaks(QPainter &painter, const TYrexPeakPainter::TPeaks &peaks, const QStringList &texts,
                   TYrexPeakPainter::THits *hits, bool sortAscending) const;
    /// A mark of a pointed peak, at a place in scale units. Mode bit 0: a line through the curves at its x; bit 1: a
    /// ring of 60 around it with a line through, and the text beside it; bit 2: that ring without the line. Nothing
    /// where the place is hidden. Without a colour in that of the selection.
    void drawHighlightCursor(QPainter &painter, const QPointF &scalePos, const QString &text, int mode,
                             const QColor &color = QColor()) const;
    /// The strip of an axis beside the curves.
    QRectF axisRect(TAxisDir dir) const { return getAxisRect(dir, getPlotCurvesRect()); }

    /// The visible stretches of an axis across the whole curves rectangle, ascending in values.
    QVector<TYrexVisiblePiece> visiblePieces(TAxisDir dir) const;
    /// What the labels of a draw take from the height of the curves.
    void setLabelStrips(double top, double bottom);

private:
    const T1DYrexPlot *fYrexPlot;
    double fTopStrip = 0.0;
    double fBottomStrip = 0.0;
};
