#include "contexts/TDARegionsPlotHelper.h"

#include "plot/PainterUtils.h"
#include "plot/TBasePlotter.h"
#include "plot/TPlotHotAreas.h"

#include <QPainter>

namespace {

const QColor cUsualColor(245, 160, 0);
constexpr double cBandAlpha = 0.16;
constexpr double cEdgeWidth = 3.0;  // canvas units
constexpr double cNameMargin = 6.0; // canvas units

} // namespace

void TDARegionsPlotHelper::draw(QPainter &painter, const TBasePlotter &plotter, const QVector<TDARegion> &regions,
                                int index, TPlotHotAreas &areas) const
{
    areas.clearBy(TPlotHotArea::daRegion);
    const QRectF curves = plotter.getPlotCurvesRect();
    const TRange scale = plotter.horzAxis().getScale();
    painter.save();
    painter.setFont(Utils::Painter::fontSizeInPixels(plotter.properties().axesFont));
    for (const TDARegion &region : shownRegions(regions, index)) {
        const QColor color = region.color.isValid() ? region.color : cUsualColor;
        QColor tint = color;
        tint.setAlphaF(cBandAlpha);
        const TRange limits = TRange(region.from, region.to).sorted();
        // a limit beyond the scale or in a cut has no place of its own: the band ends where the axis does
        const TRanges visible = plotter.drawnRanges(horzDir).adjustTo(scale);
        for (const TRange &piece : visible.toVector()) {
            const TRange shown(std::max(limits.a, piece.a), std::min(limits.b, piece.b));
            double left = 0.0;
            double right = 0.0;
            if (!(shown.a < shown.b) || !plotter.scale2Canvas(horzDir, shown.a, left) ||
                !plotter.scale2Canvas(horzDir, shown.b, right))
                continue;
            const QRectF band =
                QRectF(QPointF(left, curves.top()), QPointF(right, curves.bottom())).normalized().intersected(curves);
            painter.fillRect(band, tint);
            painter.setPen(QPen(color, cEdgeWidth));
            painter.drawLine(band.topLeft(), band.bottomLeft());
            painter.drawLine(band.topRight(), band.bottomRight());
            painter.drawText(band.adjusted(cNameMargin, cNameMargin, -cNameMargin, -cNameMargin),
                             Qt::AlignTop | Qt::AlignHCenter, region.name);
            areas.append(TPlotHotArea(band, areas.count(), TPlotHotArea::daRegion, region.id));
        }
    }
    painter.restore();
}
