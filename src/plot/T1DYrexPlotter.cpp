#include "T1DYrexPlotter.h"

#include "T1DYrexPlot.h"
#include "TSimple1DYrexPlotter.h"
#include "TYrexUnits.h"
#include "plot/ColorUtils.h"
#include "plot/PainterUtils.h"
#include "plot/TTypesetter.h"

#include <QPainter>

namespace {

constexpr double cRing = 60.0;        // width of the ring around a pointed peak
constexpr double cTextGap = 6.0;      // between that ring and its text
constexpr double cLargestStrip = 0.5; // of the height; more is left to the curves

enum TCursorMode { cUprightLine = 1, cRingAndLine = 2, cRingAlone = 4 };

} // namespace

T1DYrexPlotter::T1DYrexPlotter(T1DYrexPlot *plot)
    : T1DStackedBasePlotter(plot)
    , fYrexPlot(plot)
{
}

QUuid T1DYrexPlotter::id() const
{
    // {5b4a5c0e-6a0f-4f0b-9d57-0a6f1b0c7d21}
    return QUuid(0x5b4a5c0e, 0x6a0f, 0x4f0b, 0x9d, 0x57, 0x0a, 0x6f, 0x1b, 0x0c, 0x7d, 0x21);
}

QRectF T1DYrexPlotter::getPlotCurvesRect() const
{
    if (isLayoutHeld())
        return heldCurvesRect();
    return adjustPlotCurvesRectToTitle(T1DStackedBasePlotter::getPlotCurvesRect(), fYrexPlot->titleProperties());
}

void T1DYrexPlotter::setLabelStrips(double top, double bottom)
{
    fTopStrip = top;
    fBottomStrip = bottom;
}

QRectF T1DYrexPlotter::adjustedPlotArea() const
{
    const QRectF area = T1DStackedBasePlotter::adjustedPlotArea();
    if (fTopStrip + fBottomStrip > cLargestStrip * area.height())
        return area;
    return area.adjusted(0.0, fTopStrip, 0.0, -fBottomStrip);
}

double T1DYrexPlotter::baselineOf(int yUnits)
{
    if (yUnits == cUnitTransmittance)
        return 1.0;
    return yUnits == cUnitPercentTransmittance ? 100.0 : 0.0;
}

double T1DYrexPlotter::baselineScaleValue() const
{
    return baselineOf(fYrexPlot->yUnits());
}

TBasePlotter *T1DYrexPlotter::createSimplePlotter() const
{
    return new TSimple1DYrexPlotter(*this, fYrexPlot->yUnits());
}

QVector<TYrexVisiblePiece> T1DYrexPlotter::visiblePieces(TAxisDir dir) const
{
    const QRectF curves = getPlotCurvesRect();
    const TRanges visible = drawnRanges(dir).adjustTo(axis(dir).drawnScale());
    const QVector<TRange> places = dir == horzDir ? rangesToCanvasUnits(dir, visible, curves.left(), curves.right())
                                                  : rangesToCanvasUnits(dir, visible, curves.top(), curves.bottom());
    QVector<TYrexVisiblePiece> pieces;
    for (int i = 0; i < visible.count(); ++i)
        pieces.append({visible.at(i), places.at(i)});
    return pieces;
}

void T1DYrexPlotter::drawIntegrals(QPainter &painter, const TYrexIntegrationRegions &regions,
                                   const T1DPlotData<double> &y, const TRange &xRange,
                                   const TYrexIntegralPlotProperties &properties, int yUnits, TYrexIntegralHits *hits,
                                   int storedXUnits, int xUnits) const
{
    const TYrexIntegralCurve::TSource source{y, xRange, storedXUnits, xUnits, yUnits};
    TYrexIntegralPainter(*this, properties, source).draw(painter, regions, hits);
}

void T1DYrexPlotter::drawPeaks(QPainter &painter, const TYrexPeakPainter::TPeaks &peaks, const QStringList &texts,
                               TYrexPeakPainter::THits *hits, bool sortAscending) const
{
    TYrexPeakPainter(*this, fYrexPlot->peakProperties()).draw(painter, peaks, texts, hits, sortAscending);
}

void T1DYrexPlotter::drawHighlightCursor(QPainter &painter, const QPointF &scalePos, const QString &text, int mode,
                                         const QColor &color) const
{
    double x = 0.0;
    double y = 0.0;
    if (mode == 0 || !scale2Canvas(horzDir, scalePos.x(), x))
        return;
    const QRectF curves = stackRow().row >= 0 ? adjustedPlotArea() : getPlotCurvesRect();
    painter.save();
    painter.setPen(
        QPen(color.isValid() ? color : Utils::Color::cSelectionColors.first(), TBasePlotProperties::cDefPenWidth));
    painter.setBrush(Qt::NoBrush);
    if (mode & cUprightLine) {
        const double more = horzAxis().isVisible() ? properties().plotAreaMargin : 0.0;
        painter.drawLine(QPointF(x, curves.top()), QPointF(x, curves.bottom() + more));
    }
    if ((mode & (cRingAndLine | cRingAlone)) && scale2Canvas(vertDir, scalePos.y(), y)) {
        const QRectF ring(x - cRing / 2, y - cRing / 2, cRing, cRing);
        painter.drawEllipse(ring);
        if (mode & cRingAndLine)
            painter.drawLine(QPointF(ring.left(), y), QPointF(ring.right(), y));
        if (!text.isEmpty()) {
            const TTypesetter typesetter(Utils::Painter::fontSizeInPixels(properties().axesFont));
            double left = ring.right() + cTextGap;
            if (left + typesetter.width(text) > curves.right())
                left = ring.left() - cTextGap - typesetter.width(text);
            const double top = qMax(curves.top() + typesetter.height(), ring.top() - cTextGap); // of the base line
            typesetter.draw(painter, QPointF(left, top), text);
        }
    }
    painter.restore();
}
