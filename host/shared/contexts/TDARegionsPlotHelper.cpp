#include "contexts/TDARegionsPlotHelper.h"

#include "contexts/DARegions.h"
#include "plot/PainterUtils.h"
#include "plot/TBasePlotter.h"
#include "plot/TPlotHotAreas.h"

#include <QPainter>

namespace {

constexpr int cMostLetters = 200; // of a name; documents may hold any
const QColor cUsualColor(245, 160, 0);
constexpr double cBandAlpha = 0.16;
constexpr double cEdgeWidth = 3.0;  // canvas units
constexpr double cNameMargin = 6.0; // canvas units
constexpr double cLimitReach = 1.5; // canvas units to each side: half of the line

/// A stretch of a region that is seen, in canvas units.
struct TPiece
{
    TRange fShown; // in units of the axis
    double fLeft = 0.0;
    double fRight = 0.0;
};

/// A limit beyond the scale or in a cut has no place of its own: the band ends where the axis does.
QVector<TPiece> piecesOf(const TBasePlotter &plotter, const TDARegion &region)
{
    QVector<TPiece> pieces;
    const TRange limits = TRange(region.from, region.to).sorted();
    const TRanges visible = plotter.drawnRanges(horzDir).adjustTo(plotter.horzAxis().getScale());
    for (const TRange &part : visible.toVector()) {
        TPiece piece;
        piece.fShown = TRange(std::max(limits.a, part.a), std::min(limits.b, part.b));
        if (piece.fShown.a < piece.fShown.b && plotter.scale2Canvas(horzDir, piece.fShown.a, piece.fLeft) &&
            plotter.scale2Canvas(horzDir, piece.fShown.b, piece.fRight))
            pieces.append(piece);
    }
    return pieces;
}

void drawPiece(QPainter &painter, const QRectF &band, const QColor &color, const QString &name)
{
    QColor tint = color;
    tint.setAlphaF(cBandAlpha);
    painter.fillRect(band, tint);
    painter.setPen(QPen(color, cEdgeWidth));
    painter.drawLine(band.topLeft(), band.bottomLeft());
    painter.drawLine(band.topRight(), band.bottomRight());
    painter.drawText(band.adjusted(cNameMargin, cNameMargin, -cNameMargin, -cNameMargin),
                     Qt::AlignTop | Qt::AlignHCenter, name.left(cMostLetters));
}

/// The band itself answers to nothing, so that the marks below it can be reached.
void addLimits(TPlotHotAreas &areas, const QRectF &curves, const TPiece &piece, const TDARegion &region)
{
    const auto add = [&](double end, double place, double limit, int which) {
        const QRectF area(place - cLimitReach, curves.top(), 2 * cLimitReach, curves.height());
        if (end == limit)
            areas.append(TPlotHotArea(area, region.id, TPlotHotArea::daRegion, which));
    };
    add(piece.fShown.a, piece.fLeft, region.from, DARegions::cFromLimit);
    add(piece.fShown.b, piece.fRight, region.from, DARegions::cFromLimit);
    add(piece.fShown.a, piece.fLeft, region.to, DARegions::cToLimit);
    add(piece.fShown.b, piece.fRight, region.to, DARegions::cToLimit);
}

} // namespace

void TDARegionsPlotHelper::draw(QPainter &painter, const TBasePlotter &plotter, const QVector<TDARegion> &regions,
                                int index, TPlotHotAreas &areas) const
{
    areas.clearBy(TPlotHotArea::daRegion);
    const QRectF curves = plotter.getPlotCurvesRect();
    painter.save();
    painter.setFont(Utils::Painter::fontSizeInPixels(plotter.properties().axesFont));
    for (const TDARegion &region : shownRegions(regions, index)) {
        for (const TPiece &piece : piecesOf(plotter, region)) {
            const QRectF band(QPointF(piece.fLeft, curves.top()), QPointF(piece.fRight, curves.bottom()));
            drawPiece(painter, band.normalized() & curves, region.color.isValid() ? region.color : cUsualColor,
                      region.name);
            addLimits(areas, curves, piece, region);
        }
    }
    painter.restore();
}
