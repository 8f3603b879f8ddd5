#include "plot/TCurvePainter.h"
#include "plot/PainterUtils.h"
#include "plot/TBasePlotter.h"
#include "plot/TColumnFiller.h"
#include <QPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace {

constexpr double cPrintColumn = 254.0 / 1200.0; // canvas units: a column at 1200 dpi
constexpr int cRun = 16; // points that Qt's stroker gets at once: its time grows with their square
constexpr int cMaxDashes = 20000;
constexpr double cDashStep = 3.0; // pen widths

/// What of the device the painter can reach, in device pixels.
QRectF deviceBounds(QPainter &painter)
{
    if (!painter.device())
        return QRectF();
    painter.save();
    painter.resetTransform();
    const QTransform rest = painter.deviceTransform(); // where the painter draws into a part of a larger device
    painter.restore();
    return rest.mapRect(QRectF(0.0, 0.0, painter.device()->width(), painter.device()->height()));
}

/// The segments of a polyline within a rectangle, as runs of connected points.
QVector<QPolygonF> clippedRuns(const QVector<QPointF> &line, const QRectF &clip)
{
    QVector<QPolygonF> runs;
    QVector<QLineF> parts;
    for (int i = 1; i < line.size(); ++i) {
        parts.clear();
        TBasePlotter::appendCorrectedLine(parts, line.at(i - 1), line.at(i), clip);
        if (parts.isEmpty())
            continue;
        if (runs.isEmpty() || runs.last().last() != parts.first().p1())
            runs.append(QPolygonF({parts.first().p1()}));
        runs.last().append(parts.first().p2());
    }
    return runs;
}

void appendHeld(QPolygonF &area, const QPointF &p, const QRectF &clip)
{
    area.append(QPointF(p.x(), qBound(clip.top(), p.y(), clip.bottom())));
}

/// The area between a polyline and a height, within a rectangle: the line held at its top and bottom.
QPolygonF clippedArea(const QVector<QPointF> &line, double base, const QRectF &clip)
{
    QPolygonF area;
    for (int i = 1; i < line.size(); ++i) {
        QPointF p = line.at(i - 1);
        QPointF q = line.at(i);
        const double dx = q.x() - p.x();
        const double slope = dx == 0.0 ? 0.0 : (q.y() - p.y()) / dx;
        const auto at = [&](double x) { return QPointF(x, p.y() + slope * (x - p.x())); };
        if (std::max(p.x(), q.x()) < clip.left() || std::min(p.x(), q.x()) > clip.right())
            continue;
        QVector<QPointF> stops = {p, q};
        if (dx != 0.0) {
            stops = {at(qBound(clip.left(), p.x(), clip.right())), at(qBound(clip.left(), q.x(), clip.right()))};
            for (const double height : {clip.top(), clip.bottom()}) {
                if ((stops.first().y() - height) * (stops.last().y() - height) < 0.0)
                    stops.insert(1, QPointF(p.x() + (height - p.y()) / slope, height));
            }
            if (stops.size() == 4 && (stops.at(1).x() - stops.at(2).x()) * dx > 0.0)
                std::swap(stops[1], stops[2]);
        }
        for (const QPointF &stop : qAsConst(stops))
            appendHeld(area, stop, clip);
    }
    if (area.isEmpty())
        return area;
    const double height = qBound(clip.top(), base, clip.bottom());
    area.append(QPointF(area.last().x(), height));
    area.append(QPointF(area.first().x(), height));
    return area;
}

/// The way along a line up to each of its points, made in steps of at least that length: along noise itself it would
/// use dashes up on the spot.
QVector<double> smoothWay(const QVector<QPointF> &line, double step)
{
    QVector<double> way(line.size(), 0.0);
    int anchor = 0;
    for (int i = 1; i < line.size(); ++i) {
        const double distance = QLineF(line.at(anchor), line.at(i)).length();
        if (distance < step && i + 1 < line.size())
            continue;
        for (int k = anchor + 1; k <= i; ++k)
            way[k] = way.at(anchor) + distance * (k - anchor) / (i - anchor);
        anchor = i;
    }
    return way;
}

} // namespace

double TDrawnCurve::distance(const QPointF &pos) const
{
    if (!curve || !clip.contains(pos))
        return -1.0;
    const QPointF at = device.map(pos);
    double nearest = -1.0;
    for (const QVector<QPointF> &line : curve->lines) {
        for (int i = 1; i < line.size(); ++i) {
            const QPointF &p = line.at(i - 1);
            const QPointF &q = line.at(i);
            if (at.x() < std::min(p.x(), q.x()) || at.x() > std::max(p.x(), q.x()))
                continue;
            double low = std::min(p.y(), q.y());
            double high = std::max(p.y(), q.y());
            if (std::abs(q.x() - p.x()) > 1.0) // longer than a pixel: the place on the line counts
                low = high = p.y() + (q.y() - p.y()) * (at.x() - p.x()) / (q.x() - p.x());
            const double away = std::max({0.0, low - at.y(), at.y() - high});
            nearest = nearest < 0.0 ? away : std::min(nearest, away);
        }
    }
    return nearest < 0.0 ? nearest : nearest / std::abs(device.m22());
}

TDrawnCurve TCurvePainter::draw(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                                const TLinearMap &mapX, const TLinearMap &mapY, const QRectF &clip,
                                const TCurveStyle &style, TCurveLayer *layer) const
{
    if (x.isEmpty() || y.isEmpty() || clip.isEmpty())
        return TDrawnCurve();
    const QTransform device = painter.deviceTransform();
    const bool isTurned = device.type() > QTransform::TxScale || device.m11() <= 0.0 || device.m22() <= 0.0;
    if (Utils::Painter::isVectorOutput(painter) || isTurned) {
        const auto curve = TCurveCache::reduce(x, y, mapX, mapY, clip.left(), clip.right(), cPrintColumn);
        drawPath(painter, *curve, clip, style);
        return TDrawnCurve();
    }
    const double penWidth = std::max(1.0, style.pen.widthF() * Utils::Painter::deviceScale(painter));
    QRectF visible = device.mapRect(clip);
    // a line along the border shows whole
    visible = visible.adjusted(0.0, -penWidth / 2, 0.0, penWidth / 2) & deviceBounds(painter);
    const QRect pixels = QRect(QPoint(qRound(visible.left()), int(std::floor(visible.top()))),
                               QPoint(qRound(visible.right()) - 1, int(std::ceil(visible.bottom())) - 1));
    if (pixels.isEmpty())
        return TDrawnCurve();
    const TLinearMap toX = mapX.then({device.m11(), device.dx()});
    const TLinearMap toY = mapY.then({device.m22(), device.dy()});
    const auto curve = fCache->reduced(x, y, toX, toY, pixels.left() - penWidth, pixels.right() + 1 + penWidth,
                                       1.0 / TColumnFiller::cParts);
    TCurveStyle inPixels = style;
    inPixels.fillBase = device.map(QPointF(0.0, style.fillBase)).y();
    if (layer && curve->monotonic && !style.fill.isValid() && style.pen.style() == Qt::SolidLine) {
        layer->append(curve, pixels, penWidth, style.pen.color(), style.antialiasing);
    } else {
        if (layer) // what came before lies below
            layer->paint(painter);
        drawColumns(painter, *curve, pixels, penWidth, inPixels);
    }
    return {curve, device, clip};
}

void TCurvePainter::drawAgain(QPainter &painter, const TDrawnCurve &drawn, const QPen &pen)
{
    if (!drawn.curve || painter.deviceTransform() != drawn.device)
        return;
    const double penWidth = std::max(1.0, pen.widthF() * Utils::Painter::deviceScale(painter));
    const QRectF visible =
        drawn.device.mapRect(drawn.clip).adjusted(0.0, -penWidth / 2, 0.0, penWidth / 2) & deviceBounds(painter);
    const QRect pixels = visible.toAlignedRect();
    if (pixels.isEmpty())
        return;
    const TCurvePainter curvePainter(nullptr); // nothing is reduced here
    TCurveStyle style;
    style.pen = QPen(pen.color(), pen.widthF());
    curvePainter.drawColumns(painter, *drawn.curve, pixels, penWidth, style);
}

void TCurvePainter::drawColumns(QPainter &painter, const TReducedCurve &curve, const QRect &pixels, double penWidth,
                                const TCurveStyle &style) const
{
    TColumnFiller filler(pixels, penWidth);
    filler.setAntialiasing(style.antialiasing);
    if (curve.monotonic && style.fill.isValid()) {
        for (const QVector<QPointF> &line : curve.lines) {
            filler.addArea(line, style.fillBase);
            filler.paint(painter, style.fill);
        }
    }
    if (style.pen.style() == Qt::NoPen)
        return;
    if (!curve.monotonic) {
        drawRuns(painter, curve, pixels, QPen(style.pen.color(), penWidth, Qt::SolidLine, Qt::RoundCap));
    } else if (style.pen.style() != Qt::SolidLine) {
        drawDashes(painter, curve, pixels, penWidth, style.pen);
    } else {
        for (const QVector<QPointF> &line : curve.lines) {
            filler.addLine(line);
            filler.paint(painter, style.pen.color());
        }
    }
}

/// A curve that is no function of x, in device pixels.
void TCurvePainter::drawRuns(QPainter &painter, const TReducedCurve &curve, const QRectF &clip, const QPen &pen) const
{
    painter.save();
    painter.resetTransform();
    const QTransform rest = painter.deviceTransform().inverted();
    QPen logical(pen);
    logical.setWidthF(pen.widthF() * rest.m11());
    painter.setPen(logical);
    for (const QVector<QPointF> &line : curve.lines) {
        for (const QPolygonF &run : clippedRuns(line, clip)) {
            const QPolygonF mapped = rest.map(run);
            for (int i = 0; i + 1 < mapped.size(); i += cRun - 1)
                painter.drawPolyline(mapped.constData() + i, std::min(cRun, mapped.size() - i));
        }
    }
    painter.restore();
}

/// Dashes along the curve, in device pixels, each drawn on its own.
void TCurvePainter::drawDashes(QPainter &painter, const TReducedCurve &curve, const QRectF &clip, double penWidth,
                               const QPen &pen) const
{
    QVector<double> pattern;
    double period = 0.0;
    for (const double part : pen.dashPattern()) {
        pattern.append(std::max(0.5, part * penWidth));
        period += pattern.last();
    }
    double length = 0.0;
    for (const QVector<QPointF> &line : curve.lines)
        length += smoothWay(line, cDashStep * penWidth).last();
    TReducedCurve dashes;
    dashes.monotonic = false;
    const bool isSolid = pattern.isEmpty() || length > period * cMaxDashes; // dashes of noise are noise
    for (const QVector<QPointF> &line : curve.lines) {
        if (isSolid) {
            dashes.lines.append(line);
            continue;
        }
        const QVector<double> way = smoothWay(line, cDashStep * penWidth);
        int part = 0;
        double end = pattern.first(); // of the present part
        QVector<QPointF> dash = {line.first()};
        for (int i = 1; i < line.size(); ++i) {
            while (way.at(i) > end) {
                const double share = (end - way.at(i - 1)) / (way.at(i) - way.at(i - 1));
                dash.append(line.at(i - 1) + (line.at(i) - line.at(i - 1)) * share);
                if (part % 2 == 0)
                    dashes.lines.append(dash);
                dash = {dash.last()};
                part = (part + 1) % pattern.size();
                end += pattern.at(part);
            }
            dash.append(line.at(i));
        }
        if (part % 2 == 0)
            dashes.lines.append(dash);
    }
    drawRuns(painter, dashes, clip, QPen(pen.color(), penWidth, Qt::SolidLine, Qt::FlatCap));
}

void TCurvePainter::drawPath(QPainter &painter, const TReducedCurve &curve, const QRectF &clip,
                             const TCurveStyle &style) const
{
    painter.save();
    if (style.fill.isValid()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(style.fill);
        for (const QVector<QPointF> &line : curve.lines)
            painter.drawPolygon(clippedArea(line, style.fillBase, clip));
    }
    QPainterPath path;
    for (const QVector<QPointF> &line : curve.lines) {
        for (const QPolygonF &run : clippedRuns(line, clip))
            path.addPolygon(run);
    }
    if (style.pen.style() != Qt::NoPen && !path.isEmpty()) {
        painter.setPen(style.pen);
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(path);
    }
    painter.restore();
}
