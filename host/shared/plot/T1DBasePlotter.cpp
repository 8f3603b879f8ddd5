#include "plot/T1DBasePlotter.h"
#include "plot/PainterUtils.h"
#include "plot/TBasePlot.h"
#include "plot/TTitleProperties.h"
#include "plot/TTypesetter.h"
#include <QPainter>
#include <cmath>

namespace {

const QUuid cPlotterId(QStringLiteral("{0d1d6c6e-7a3b-5a57-8e0c-58a1a3f0c702}"));
constexpr int cMaxMarkers = 200;    // points in view up to which they are marked
constexpr double cMarkerSize = 3.0; // pen widths
constexpr double cAreaAlpha = 0.25; // of an area that is asked for without the properties' own
constexpr double cPointSize = 16.0; // of a baseline point
constexpr double cBaselineWidth = 1.5;
constexpr int cTitleLines = 2;

/// A place of a hidden value is NaN, which QRectF takes for one inside.
bool isWithin(const QRectF &rect, const QPointF &pos)
{
    return std::isfinite(pos.x()) && std::isfinite(pos.y()) && rect.contains(pos);
}

/// A disc, or what stands for another kind of point: a square (1), a diamond (3).
void drawMarker(QPainter &painter, const QRectF &rect, int shape)
{
    constexpr int cSquare = 1;
    constexpr int cDiamond = 3;
    if (shape == cSquare)
        painter.drawRect(rect);
    else if (shape == cDiamond)
        painter.drawPolygon(
            QPolygonF({QPointF(rect.center().x(), rect.top()), QPointF(rect.right(), rect.center().y()),
                       QPointF(rect.center().x(), rect.bottom()), QPointF(rect.left(), rect.center().y())}));
    else
        painter.drawEllipse(rect);
}

} // namespace

T1DBasePlotter::T1DBasePlotter(TBasePlot *plot)
    : TBasePlotter(plot)
    , fCache(new TCurveCache)
{
}

QUuid T1DBasePlotter::id() const
{
    return cPlotterId;
}

TCurveStyle T1DBasePlotter::styleOf(const QPen &pen) const
{
    TCurveStyle style;
    style.pen = pen;
    style.pen.setColor(ink(pen.color()));
    style.antialiasing = properties().antialiasing;
    return style;
}

QRectF T1DBasePlotter::curveClip() const
{
    return adjustedPlotArea();
}

void T1DBasePlotter::drawCurve(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                               const TCurveStyle &style, const TCurveChange &change, QVector<TDrawnCurve> *drawn)
{
    const double base = baselineScaleValue();
    const double start = axis(horzDir).drawnScale().a;
    const TLinearMap ownX{change.factorX, start * (1.0 - change.factorX)};
    const TLinearMap ownY{change.factorY, base * (1.0 - change.factorY) + change.offset};
    const QRectF whole = curveClip();
    const TCurvePainter curvePainter(fCache.data());
    const QVector<TAxisMap::TPiece> rows = axisMap(vertDir).pieces();
    for (const TAxisMap::TPiece &vert : rows) {
        // with hidden intensities each piece keeps to itself; an uncut curve may fill the plot
        const TRange heights = rows.size() > 1 ? vert.places : TRange(whole.top(), whole.bottom());
        for (const TAxisMap::TPiece &horz : axisMap(horzDir).pieces()) {
            const QRectF clip(QPointF(horz.places.a, heights.a), QPointF(horz.places.b, heights.b));
            const TDrawnCurve result =
                curvePainter.draw(painter, x, y, ownX.then(horz.map), ownY.then(vert.map), clip, style, fLayer);
            if (drawn && result.curve)
                drawn->append(result);
        }
    }
}

void T1DBasePlotter::plot1DXY(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                              QVector<TDrawnCurve> *drawn)
{
    plot1DXYCommon(painter, x, y, properties().curvePen, QPointF(1.0, 1.0), properties().fillAlpha > 0.0, drawn);
    if (properties().showMarkers)
        drawMarkers(painter, x, y, properties().curvePen);
}

void T1DBasePlotter::plot1DXYCommon(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                                    const QPen &pen, const QPointF &sizeFactor, bool fill, QVector<TDrawnCurve> *drawn)
{
    TCurveStyle style = styleOf(pen);
    double base = 0.0;
    if (fill && scale2Canvas(vertDir, baselineScaleValue(), base)) {
        style.fill = style.pen.color();
        style.fill.setAlphaF(properties().fillAlpha > 0.0 ? properties().fillAlpha : cAreaAlpha);
        style.fillBase = base;
    }
    TCurveChange change;
    change.factorX = sizeFactor.x();
    change.factorY = sizeFactor.y();
    drawCurve(painter, x, y, style, change, drawn);
}

void T1DBasePlotter::drawMarkers(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                                 const QPen &pen) const
{
    const QRectF clip = curveClip();
    QVector<QPointF> points;
    for (int i = 0; i < std::min(x.count, y.count) && points.size() < cMaxMarkers; ++i) {
        const QPointF pos = scale2Canvas(QPointF(x.at(i), y.at(i)));
        if (isWithin(clip, pos))
            points.append(pos);
    }
    if (points.size() >= cMaxMarkers)
        return;
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink(pen.color()));
    const double radius = cMarkerSize * pen.widthF() / 2;
    for (const QPointF &pos : qAsConst(points))
        painter.drawEllipse(pos, radius, radius);
    painter.restore();
}

void T1DBasePlotter::plotBaseline(QPainter &painter, double value) const
{
    const QRectF area = adjustedPlotArea();
    double place = 0.0;
    if (!scale2Canvas(vertDir, value, place) || place < area.top() || place > area.bottom())
        return;
    QColor color = ink(properties().axesColor);
    color.setAlphaF(0.5);
    for (const TAxisMap::TPiece &piece : axisMap(horzDir).pieces())
        Utils::Painter::drawCrispLine(painter, QLineF(piece.places.a, place, piece.places.b, place), cBaselineWidth,
                                      color);
}

QRectF T1DBasePlotter::adjustPlotCurvesRectToTitle(const QRectF &rect, const TTitleProperties &title) const
{
    const QMarginsF margins = titleMargins(title);
    return rect.adjusted(std::min(margins.left(), rect.width() / 2), std::min(margins.top(), rect.height() / 2),
                         -std::min(margins.right(), rect.width() / 2), 0.0);
}

void T1DBasePlotter::plotTitle(QPainter &painter, const QString &text, const TTitleProperties &title) const
{
    if (!title.visible || text.isEmpty())
        return;
    const TTypesetter typesetter(Utils::Painter::fontSizeInPixels(title.font));
    QRectF rect = getTitleRect(title);
    const bool isTurned = title.position == titleAtLeft || title.position == titleAtRight;
    painter.save();
    painter.setPen(ink(title.color));
    if (isTurned) {
        painter.translate(rect.left(), rect.bottom());
        painter.rotate(-90.0);
        rect = QRectF(0.0, 0.0, rect.height(), rect.width());
    }
    const QStringList lines = typesetter.wrapped(text, rect.width(), cTitleLines);
    const int alignment = title.alignment == alignTitleCentre  ? Qt::AlignHCenter
                          : title.alignment == alignTitleRight ? Qt::AlignRight
                                                               : Qt::AlignLeft;
    for (int i = 0; i < lines.size(); ++i) {
        const QRectF line(rect.left(), rect.top() + i * typesetter.height(), rect.width(), typesetter.height());
        typesetter.draw(painter, line, alignment | Qt::AlignTop, lines.at(i));
    }
    painter.restore();
}

QVector<QRectF> T1DBasePlotter::drawBaselinePoints(QPainter &painter, const T1DPlotData<double> &x,
                                                   const T1DPlotData<double> &y, const QVector<char> &flags,
                                                   int highlighted, const QVector<char> &shapes) const
{
    QVector<QRectF> rects;
    const QRectF clip = curveClip();
    const QColor color = ink(Qt::blue);
    painter.save();
    painter.setPen(QPen(color, TBasePlotProperties::cDefPenWidth));
    for (int i = 0; i < std::min(x.count, y.count); ++i) {
        const QPointF pos = scale2Canvas(QPointF(x.at(i), y.at(i)));
        if (!isWithin(clip, pos)) {
            rects.append(QRectF());
            continue;
        }
        const double size = i == highlighted ? 1.5 * cPointSize : cPointSize;
        const QRectF rect(pos.x() - size / 2, pos.y() - size / 2, size, size);
        painter.setBrush(flags.value(i, 0) ? QBrush(color) : QBrush(paper().isValid() ? paper() : QColor(Qt::white)));
        drawMarker(painter, rect, shapes.value(i, 0));
        rects.append(rect);
    }
    painter.restore();
    return rects;
}
