#include "plot/PainterUtils.h"
#include "plot/TBasePlot.h"
#include "plot/TBasePlotter.h"
#include "plot/TTypesetter.h"
#include <QPainter>
#include <cmath>

// The axes of TBasePlotter: how much room they take and how they are drawn. Beside the curves rectangle stand,
// outwards: the margin of the plot area, the axis line, ticks, numbers, title.

namespace {

constexpr double cNumberGap = 9.0;   // between tick and number
constexpr double cLabelGap = 16.0;   // between numbers and title
constexpr double cOuterGap = 12.0;   // between a strip and the item's border
constexpr double cBareMargin = 30.0; // beside an edge without an axis: half of an end number has room
constexpr double cCutStroke = 20.0;  // length of a stroke of a cut mark
constexpr double cCutAngle = 60.0;   // degrees
constexpr double cMinCurves = 10.0;  // no rectangle gets smaller
constexpr int cTitleLines = 2;       // of the title of an axis, at most

TTypesetter typesetterOf(const QFont &font)
{
    return TTypesetter(Utils::Painter::fontSizeInPixels(font));
}

double tickLength(const TBasePlotProperties &properties, bool outside)
{
    const bool isThere =
        properties.tickDirection == ticksBoth || properties.tickDirection == (outside ? int(ticksOut) : int(ticksIn));
    return isThere ? TBasePlotter::cAxes1aryTickLength : 0.0;
}

} // namespace

bool TBasePlotter::isTurnedOver(TAxisDir dir) const
{
    return fPlot->axis(dir).posPolicy() == (dir == horzDir ? int(axisAtTop) : int(axisAtRight));
}

/// Ticks for an axis of that length; what is hidden takes no length.
TAxisTicks TBasePlotter::ticksFor(TAxisDir dir, double length) const
{
    const TRange scale = axis(dir).drawnScale();
    const TAxisMap map(drawnRanges(dir), scale, 0.0, length, cCutGap);
    const TTypesetter typesetter = typesetterOf(properties().axesFont);
    const auto extent = [&](const QString &text) {
        return dir == horzDir ? typesetter.width(text) : typesetter.digitHeight();
    };
    return TAxisTicks(scale, map.density() * scale.span(), extent, properties().axis(dir).ticks);
}

TAxisTicks TBasePlotter::axisTicks(TAxisDir dir) const
{
    if (!fPlot->hasNumbers(dir))
        return TAxisTicks();
    const QRectF rect = adjustedPlotArea();
    return ticksFor(dir, dir == horzDir ? rect.width() : rect.height());
}

/// Width of the widest number, in whole digits, so that a zoom rarely moves the curves.
double TBasePlotter::numbersWidth(double length) const
{
    const TTypesetter typesetter = typesetterOf(properties().axesFont);
    const double digit = typesetter.width(QStringLiteral("0"));
    // a title may take some of the length, and fewer numbers may be written with other decimals
    double widest = 0.0;
    for (const double part : {1.0, 0.85}) {
        const QStringList labels = ticksFor(vertDir, length * part).labels();
        for (const QString &label : labels)
            widest = std::max(widest, typesetter.width(label));
    }
    return std::ceil(widest / digit - 1e-6) * digit;
}

int TBasePlotter::axisTitleLines(TAxisDir dir, double length) const
{
    const QString title = fPlot->axisTitle(dir);
    return typesetterOf(properties().axesTitleFont).wrapped(title, length, cTitleLines).size();
}

/// About the length of an axis, before the room for numbers and titles is known to the unit.
double TBasePlotter::roughLength(TAxisDir dir) const
{
    const QRectF rect = fPlot->rect();
    if (dir == horzDir)
        return 0.8 * rect.width();
    return std::max(cMinCurves, rect.height() - stripThickness(horzDir) - cOuterGap - cBareMargin);
}

/// From the axis line outwards.
double TBasePlotter::stripThickness(TAxisDir dir) const
{
    if (!fPlot->axis(dir).isVisible())
        return 0.0;
    const double length = roughLength(dir);
    double thickness = 0.0;
    if (fPlot->hasNumbers(dir)) {
        const TTypesetter numbers = typesetterOf(properties().axesFont);
        thickness += tickLength(properties(), true) + cNumberGap;
        thickness += dir == horzDir ? numbers.digitHeight() : numbersWidth(length);
    }
    const int lines = axisTitleLines(dir, length);
    if (lines > 0)
        thickness += cLabelGap + lines * typesetterOf(properties().axesTitleFont).height();
    return thickness;
}

double TBasePlotter::exponentRoom() const
{
    const TAxis &vert = fPlot->vertAxis();
    if (!vert.isVisible() || !fPlot->hasNumbers(vertDir))
        return 0.0;
    const double length = fPlot->rect().height();
    return ticksFor(vertDir, length).exponent() == 0 ? 0.0 : typesetterOf(properties().axesFont).height();
}

QRectF TBasePlotter::computedCurvesRect() const
{
    const TBasePlotProperties &given = properties();
    const QRectF rect = fPlot->rect();
    const bool onTop = isTurnedOver(horzDir);
    const bool atRight = isTurnedOver(vertDir);
    const double horzStrip = stripThickness(horzDir);
    const double vertStrip = stripThickness(vertDir);
    const auto margin = [&](double wanted, double strip, bool isHere) {
        if (wanted >= 0.0)
            return wanted;
        return given.plotAreaMargin + (isHere && strip > 0.0 ? strip + cOuterGap : cBareMargin);
    };
    const double left = margin(given.marginLeft, vertStrip, !atRight);
    const double right = margin(given.marginRight, vertStrip, atRight);
    double top = margin(given.marginTop, horzStrip, onTop);
    double bottom = margin(given.marginBottom, horzStrip, !onTop);
    const double otherSide = std::max(exponentRoom(), secondStripThickness());
    if (onTop)
        bottom += given.marginBottom < 0.0 ? otherSide : 0.0;
    else
        top += given.marginTop < 0.0 ? otherSide : 0.0;
    QRectF curves = rect.adjusted(left, top, -right, -bottom);
    curves.setWidth(std::max(cMinCurves, curves.width()));
    curves.setHeight(std::max(cMinCurves, curves.height()));
    return curves;
}

QRectF TBasePlotter::plotArea() const
{
    const double margin = properties().plotAreaMargin;
    return getPlotCurvesRect().adjusted(-margin, -margin, margin, margin);
}

double TBasePlotter::adjustedAxisPos(TAxisDir dir) const
{
    const QRectF area = plotArea();
    double place = 0.0;
    if (fPlot->axis(dir).posPolicy() == axisAtZero) {
        const TAxisDir other = dir == horzDir ? vertDir : horzDir;
        const QRectF curves = getPlotCurvesRect();
        const double low = other == horzDir ? curves.left() : curves.top();
        const double high = other == horzDir ? curves.right() : curves.bottom();
        if (scale2Canvas(other, 0.0, place) && place >= low && place <= high)
            return place;
    }
    if (dir == horzDir)
        return isTurnedOver(dir) ? area.top() : area.bottom();
    return isTurnedOver(dir) ? area.right() : area.left();
}

QRectF TBasePlotter::getAxisRect(TAxisDir dir, const QRectF &curvesRect) const
{
    if (!fPlot->axis(dir).isVisible())
        return QRectF();
    const double margin = properties().plotAreaMargin;
    const QRectF area = curvesRect.adjusted(-margin, -margin, margin, margin);
    const double thickness = stripThickness(dir);
    if (dir == horzDir)
        return QRectF(area.left(), isTurnedOver(dir) ? area.top() - thickness : area.bottom(), area.width(), thickness);
    return QRectF(isTurnedOver(dir) ? area.right() : area.left() - thickness, area.top(), thickness, area.height());
}

void TBasePlotter::drawGrid(QPainter &painter) const
{
    const QRectF area = plotArea();
    for (const TAxisDir dir : {horzDir, vertDir}) {
        const TAxisProperties &looks = properties().axis(dir);
        if (!looks.majorGrid && !looks.minorGrid)
            continue;
        const TAxisTicks ticks = axisTicks(dir);
        const auto drawLines = [&](const QVector<double> &values, double width) {
            for (const double value : values) {
                double place = 0.0;
                if (!scale2Canvas(dir, value, place))
                    continue;
                const QLineF line = dir == horzDir ? QLineF(place, area.top(), place, area.bottom())
                                                   : QLineF(area.left(), place, area.right(), place);
                if (looks.gridStyle == Qt::SolidLine) {
                    Utils::Painter::drawCrispLine(painter, line, width, ink(looks.gridColor));
                } else {
                    painter.setPen(QPen(ink(looks.gridColor), width, looks.gridStyle, Qt::FlatCap));
                    painter.drawLine(line);
                }
            }
        };
        if (looks.minorGrid)
            drawLines(ticks.minor(), looks.minorGridWidth);
        if (looks.majorGrid)
            drawLines(ticks.major(), looks.majorGridWidth);
    }
}

void TBasePlotter::drawAxis(QPainter &painter, TAxisDir dir) const
{
    if (!fPlot->axis(dir).isVisible())
        return;
    const QRectF area = plotArea();
    drawAxisLine(painter, dir, dir == horzDir ? TRange(area.left(), area.right()) : TRange(area.top(), area.bottom()));
    if (fPlot->hasNumbers(dir))
        drawTicks(painter, dir, fPlot->rect());
    drawAxisTitle(painter, dir);
}

/// Along a span, with a gap and a mark where a stretch is hidden.
void TBasePlotter::drawAxisLine(QPainter &painter, TAxisDir dir, const TRange &span) const
{
    if (properties().frame != noFrame)
        drawBrokenLine(painter, dir, adjustedAxisPos(dir), span);
}

void TBasePlotter::drawBrokenLine(QPainter &painter, TAxisDir dir, double pos, const TRange &span) const
{
    const double half = properties().axesLineWidth / 2; // more at either end, which closes the corners
    const auto drawPart = [&](double first, double last) {
        const QLineF line = dir == horzDir ? QLineF(first, pos, last, pos) : QLineF(pos, first, pos, last);
        Utils::Painter::drawCrispLine(painter, line, properties().axesLineWidth, ink(properties().axesColor));
    };
    QVector<TAxisMap::TPiece> pieces = axisMap(dir).pieces();
    std::sort(pieces.begin(), pieces.end(),
              [](const TAxisMap::TPiece &l, const TAxisMap::TPiece &r) { return l.places.a < r.places.a; });
    double from = span.a - half;
    for (int i = 1; i < pieces.size(); ++i) {
        drawPart(from, pieces.at(i - 1).places.b);
        drawCutMark(painter, dir, pos, pieces.at(i - 1).places.b);
        drawCutMark(painter, dir, pos, pieces.at(i).places.a);
        from = pieces.at(i).places.a;
    }
    drawPart(from, span.b + half);
}

void TBasePlotter::drawTicks(QPainter &painter, TAxisDir dir, const QRectF &room) const
{
    const TTypesetter typesetter = typesetterOf(properties().axesFont);
    const TAxisTicks ticks = axisTicks(dir);
    double place = 0.0;
    for (const double value : ticks.minor()) {
        if (scale2Canvas(dir, value, place))
            drawTick(painter, dir, place, cAxes2aryTickLength);
    }
    painter.setPen(ink(properties().axesColor));
    for (int i = 0; i < ticks.major().size(); ++i) {
        if (!scale2Canvas(dir, ticks.major().at(i), place))
            continue;
        drawTick(painter, dir, place, cAxes1aryTickLength);
        drawNumber(painter, dir, place, ticks.labels().at(i), room);
    }
    if (ticks.exponent() != 0 && !room.isEmpty())
        drawExponent(painter, dir, ticks.exponentText(), typesetter);
}

void TBasePlotter::drawCutMark(QPainter &painter, TAxisDir dir, double pos, double place) const
{
    constexpr double cDegree = 3.14159265358979323846 / 180.0;
    const double along = cCutStroke / 2 * std::cos(cCutAngle * cDegree);
    const double across = cCutStroke / 2 * std::sin(cCutAngle * cDegree);
    painter.setPen(QPen(ink(properties().axesColor), properties().axesLineWidth, Qt::SolidLine, Qt::FlatCap));
    if (dir == horzDir)
        painter.drawLine(QPointF(place - along, pos + across), QPointF(place + along, pos - across));
    else
        painter.drawLine(QPointF(pos - across, place + along), QPointF(pos + across, place - along));
}

void TBasePlotter::drawTick(QPainter &painter, TAxisDir dir, double place, double length) const
{
    const double pos = adjustedAxisPos(dir);
    const double outwards = (dir == horzDir) == isTurnedOver(dir) ? -1.0 : 1.0; // down and right are positive
    const double outer = tickLength(properties(), true) > 0.0 ? length * outwards : 0.0;
    const double inner = tickLength(properties(), false) > 0.0 ? -length * outwards : 0.0;
    const QLineF line = dir == horzDir ? QLineF(place, pos + inner, place, pos + outer)
                                       : QLineF(pos + inner, place, pos + outer, place);
    Utils::Painter::drawCrispLine(painter, line, properties().axesLineWidth, ink(properties().axesColor));
}

/// A number is drawn only if it is whole.
void TBasePlotter::drawNumber(QPainter &painter, TAxisDir dir, double place, const QString &text,
                              const QRectF &room) const
{
    const TTypesetter typesetter = typesetterOf(properties().axesFont);
    const QRectF area = plotArea();
    const double distance = tickLength(properties(), true) + cNumberGap;
    const double width = typesetter.width(text);
    const double height = typesetter.digitHeight();
    QRectF box(0.0, 0.0, width, height);
    if (dir == horzDir) {
        const double top = isTurnedOver(dir) ? area.top() - distance - height : area.bottom() + distance;
        box.moveTopLeft(QPointF(place - width / 2, top));
    } else {
        const double left = isTurnedOver(dir) ? area.right() + distance : area.left() - distance - width;
        box.moveTopLeft(QPointF(left, place - height / 2));
    }
    if (room.contains(box))
        typesetter.draw(painter, box.bottomLeft(), text);
}

void TBasePlotter::drawExponent(QPainter &painter, TAxisDir dir, const QString &text,
                                const TTypesetter &typesetter) const
{
    const QRectF area = plotArea();
    const double width = typesetter.width(text);
    if (dir == vertDir) {
        const double left = isTurnedOver(dir) ? area.right() - width : area.left() - properties().axesLineWidth / 2;
        // at the end that the horizontal axis leaves free
        const double base =
            isTurnedOver(horzDir) ? area.bottom() + cNumberGap + typesetter.ascent() : area.top() - cNumberGap;
        typesetter.draw(painter, QPointF(left, base), text);
        return;
    }
    const TTypesetter title = typesetterOf(properties().axesTitleFont);
    const double distance = tickLength(properties(), true) + cNumberGap + typesetter.digitHeight() + cLabelGap;
    const double base =
        isTurnedOver(dir) ? area.top() - distance - title.descent() : area.bottom() + distance + title.ascent();
    typesetter.draw(painter, QPointF(area.right() - width, base), text);
}

void TBasePlotter::drawAxisTitle(QPainter &painter, TAxisDir dir) const
{
    const QRectF area = plotArea();
    const QRectF curves = getPlotCurvesRect();
    const QRectF strip = getAxisRect(dir, curves);
    const TTypesetter typesetter = typesetterOf(properties().axesTitleFont);
    double length = dir == horzDir ? area.width() : area.height();
    if (dir == horzDir && axisTicks(dir).exponent() != 0) // the power of ten stands at the end of the same line
        length -= 2.0 * typesetterOf(properties().axesFont).width(axisTicks(dir).exponentText()) + cLabelGap;
    const QStringList lines = typesetter.wrapped(fPlot->axisTitle(dir), length, axisTitleLines(dir, roughLength(dir)));
    if (lines.isEmpty())
        return;
    painter.save();
    painter.setPen(ink(properties().axesColor));
    const double block = lines.size() * typesetter.height();
    if (dir == vertDir) {
        // turned, so that the text runs upwards; at either side the first line is the one further left
        const double left = isTurnedOver(dir) ? strip.right() - block : strip.left();
        painter.translate(left, curves.center().y());
        painter.rotate(-90.0);
        for (int i = 0; i < lines.size(); ++i) {
            const QPointF base(-typesetter.width(lines.at(i)) / 2, i * typesetter.height() + typesetter.ascent());
            typesetter.draw(painter, base, lines.at(i));
        }
    } else {
        const double top = isTurnedOver(dir) ? strip.top() : strip.bottom() - block;
        for (int i = 0; i < lines.size(); ++i) {
            const QPointF base(curves.center().x() - typesetter.width(lines.at(i)) / 2,
                               top + i * typesetter.height() + typesetter.ascent());
            typesetter.draw(painter, base, lines.at(i));
        }
    }
    painter.restore();
}

void TBasePlotter::drawFrame(QPainter &painter) const
{
    if (properties().frame != boxFrame)
        return;
    const QRectF area = plotArea();
    const double half = properties().axesLineWidth / 2;
    const auto drawSide = [&](const QLineF &line) {
        Utils::Painter::drawCrispLine(painter, line, properties().axesLineWidth, ink(properties().axesColor));
    };
    // sides that an axis drew already are left to it
    const bool horzDrawn = fPlot->horzAxis().isVisible();
    const bool vertDrawn = fPlot->vertAxis().isVisible();
    const double top = adjustedAxisPos(horzDir);
    const double left = adjustedAxisPos(vertDir);
    for (const double y : {area.top(), area.bottom()}) {
        if (!horzDrawn || y != top)
            drawSide(QLineF(area.left() - half, y, area.right() + half, y));
    }
    for (const double x : {area.left(), area.right()}) {
        if (!vertDrawn || x != left)
            drawSide(QLineF(x, area.top() - half, x, area.bottom() + half));
    }
}
