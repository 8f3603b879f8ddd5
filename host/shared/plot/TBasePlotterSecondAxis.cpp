#include "plot/PainterUtils.h"
#include "plot/TBasePlot.h"
#include "plot/TBasePlotter.h"
#include "plot/TSecondAxisTicks.h"
#include "plot/TTypesetter.h"
#include <QPainter>
#include <cmath>

// The horizontal axis in a second unit, on the other side of the curves.

namespace {

constexpr double cNumberGap = 9.0; // between tick and number
constexpr double cLabelGap = 16.0; // between numbers and title

TTypesetter typesetterOf(const QFont &font)
{
    return TTypesetter(Utils::Painter::fontSizeInPixels(font));
}

} // namespace

/// From the line outwards; 0 without a second axis.
double TBasePlotter::secondStripThickness() const
{
    if (!fPlot->hasSecondAxis())
        return 0.0;
    return cAxes1aryTickLength + cNumberGap + typesetterOf(properties().axesFont).digitHeight() + cLabelGap +
           typesetterOf(properties().axesTitleFont).height();
}

QRectF TBasePlotter::secondAxisRect() const
{
    const double thickness = secondStripThickness();
    if (thickness == 0.0)
        return QRectF();
    const QRectF area = plotArea();
    const double top = isTurnedOver(horzDir) ? area.bottom() : area.top() - thickness;
    return QRectF(area.left(), top, area.width(), thickness);
}

void TBasePlotter::drawSecondAxis(QPainter &painter) const
{
    if (!fPlot->hasSecondAxis())
        return;
    const QRectF area = plotArea();
    const QRectF curves = adjustedPlotArea();
    const bool isBelow = isTurnedOver(horzDir);
    const double line = isBelow ? area.bottom() : area.top();
    const double outwards = isBelow ? 1.0 : -1.0;
    const TTypesetter numbers = typesetterOf(properties().axesFont);
    const TTypesetter title = typesetterOf(properties().axesTitleFont);
    const TRange scale = horzAxis().drawnScale();
    const auto placeOf = [&](double value, double &place) {
        return scale2Canvas(horzDir, fPlot->fromSecondAxis(value), place) && place >= curves.left() - 1e-6 &&
               place <= curves.right() + 1e-6;
    };
    const TSecondAxisTicks ticks(TRange(fPlot->toSecondAxis(scale.a), fPlot->toSecondAxis(scale.b)), placeOf,
                                 [&](const QString &text) { return numbers.width(text); });
    painter.save();
    painter.setPen(ink(properties().axesColor));
    const auto drawLine = [&](const QLineF &each) {
        Utils::Painter::drawCrispLine(painter, each, properties().axesLineWidth, ink(properties().axesColor));
    };
    if (properties().frame != boxFrame)
        drawBrokenLine(painter, horzDir, line, TRange(area.left(), area.right()));
    painter.setPen(ink(properties().axesColor));
    const double inside = properties().tickDirection == ticksOut ? 0.0 : 1.0;
    const double outside = properties().tickDirection == ticksIn ? 0.0 : 1.0;
    const auto drawTicks = [&](const QVector<double> &values, double length) {
        double place = 0.0;
        for (const double value : values) {
            if (placeOf(value, place))
                drawLine(QLineF(place, line - outwards * inside * length, place, line + outwards * outside * length));
        }
    };
    drawTicks(ticks.minor(), cAxes2aryTickLength);
    drawTicks(ticks.major(), cAxes1aryTickLength);
    const double near = outside * cAxes1aryTickLength + cNumberGap;
    const double base = isBelow ? line + near + numbers.digitHeight() : line - near;
    double place = 0.0;
    for (int i = 0; i < ticks.major().size(); ++i) {
        const double width = numbers.width(ticks.labels().at(i));
        if (placeOf(ticks.major().at(i), place) && place - width / 2 >= fPlot->rect().left() &&
            place + width / 2 <= fPlot->rect().right())
            numbers.draw(painter, QPointF(place - width / 2, base), ticks.labels().at(i));
    }
    const QString text = title.wrapped(fPlot->secondAxisTitle(), area.width(), 1).value(0);
    const double far = near + numbers.digitHeight() + cLabelGap;
    const double titleBase = isBelow ? line + far + title.ascent() : line - far - title.descent();
    title.draw(painter, QPointF(area.center().x() - title.width(text) / 2, titleBase), text);
    painter.restore();
}
