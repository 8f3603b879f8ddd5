#include "TYrexIntegralPainter.h"

#include "T1DYrexPlotter.h"
#include "TYrexIntegrationRegions.h"
#include "plot/PainterUtils.h"
#include "plot/T1DLabelArranger.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace {

constexpr double cHalfTick = TBasePlotter::cAxes1aryTickLength / 2;
constexpr double cLeaderWidth = 0.6;   // of the pen's width
constexpr double cUprightGlyph = 4.0;  // part of the height by which a turned base line stands right of the middle
constexpr double cLabelDistance = 3.5; // half ticks from a segment to its label

/// Lines that go on where the one before ends as one piece, so that a figure can be edited as a curve.
QPainterPath pathOf(const QVector<QLineF> &lines)
{
    QPainterPath path;
    for (const QLineF &line : lines) {
        if (path.isEmpty() || path.currentPosition() != line.p1())
            path.moveTo(line.p1());
        path.lineTo(line.p2());
    }
    return path;
}

/// How a visible range stands to a region, as TRange::compare answers.
enum TOutcome { cInside = 0, cBeginsBelow = 2, cEndsAbove = 3, cAround = 5 };

} // namespace

TYrexIntegralPainter::TYrexIntegralPainter(const T1DYrexPlotter &plotter, const TYrexIntegralPlotProperties &properties,
                                           const TYrexIntegralCurve::TSource &source)
    : fPlotter(plotter)
    , fProperties(properties)
    , fCurve(source)
    , fTypesetter(Utils::Painter::fontSizeInPixels(properties.font))
    , fCurves(plotter.adjustedPlotArea()) // less the strip of peak labels
    , fPen(properties.pen)
{
    fPen.setColor(plotter.ink(fPen.color()));
}

/// Without curves the labels go to the row of segments.
bool TYrexIntegralPainter::isOnCurve() const
{
    return fProperties.labelPosition == 1 && shows(TYrexIntegralPlotProperties::cShowCurve);
}

bool TYrexIntegralPainter::isHorizontal() const
{
    return fProperties.labelOrientation == 1;
}

/// Where the row of segments stands.
double TYrexIntegralPainter::rowHeight() const
{
    return fCurves.bottom() - fCurves.height() * fProperties.rangeMargin - fTypesetter.height() - 3.0 * cHalfTick;
}

QPen TYrexIntegralPainter::labelPen() const
{
    QPen pen = fPen;
    pen.setColor(fPlotter.ink(fProperties.labelColor));
    return pen;
}

void TYrexIntegralPainter::draw(QPainter &painter, const TYrexIntegrationRegions &regions, TYrexIntegralHits *hits)
{
    if (hits)
        *hits = TYrexIntegralHits();
    fLabels.clear();
    painter.save();
    const double largest = regions.maxArea(true);
    const bool showsMethod =
        shows(TYrexIntegralPlotProperties::cShowLabels) && shows(TYrexIntegralPlotProperties::cShowMethod);
    for (int i = 0; i < regions.count(); ++i) {
        const TYrexIntegrationRegion &region = *regions.at(i);
        QString text = QStringLiteral("%1").arg(region.area / regions.normValue(), 0, 'f', fProperties.decimals);
        if (showsMethod)
            text += QStringLiteral(" [S]"); // a sum of values
        drawOne(painter, region, text, largest == 0.0 ? 1.0 : std::abs(region.area) / largest, i, hits);
    }
    if (!fLabels.isEmpty())
        drawSegmentLabels(painter, regions, hits);
    painter.restore();
}

void TYrexIntegralPainter::drawOne(QPainter &painter, const TYrexIntegrationRegion &region, const QString &text,
                                   double heightFactor, int index, TYrexIntegralHits *hits)
{
    const double row = rowHeight();
    if (!(fCurves.top() - cHalfTick < row))
        return;
    const TRange bounds(region.boundA, region.boundB);
    const bool hasLabel = shows(TYrexIntegralPlotProperties::cShowLabels);
    const bool hasSegment = shows(TYrexIntegralPlotProperties::cShowSegment);
    TSegment segment;
    if (hasSegment || hasLabel)
        segment = segmentOf(bounds, row);
    painter.setPen(fPen);
    if (hasSegment) {
        painter.drawLines(segment.lines);
        painter.drawLines(segment.marks);
    }
    if (hasLabel && !isOnCurve() && !segment.lines.isEmpty()) {
        T1DLabelInfo label;
        label.anchor = segment.labelAnchor;
        label.value = region.area;
        label.text = text;
        label.width = fTypesetter.width(text);
        label.height = fTypesetter.height();
        label.weight = std::abs(region.area);
        label.index = index;
        fLabels.append(label);
    }
    QRectF curveRect;
    QRectF labelRect;
    if (shows(TYrexIntegralPlotProperties::cShowCurve)) {
        const TYrexIntegralCurve::TBand band{fCurves.top() + fCurves.height() * fProperties.curveMargin,
                                             fCurves.height() * fProperties.curveMaxHeight * heightFactor};
        fCurve.build(bounds, region.area, band, fPlotter.axisMap(horzDir).pieces(), fCurves);
        QPen pen = fPen;
        pen.setCapStyle(Qt::RoundCap); // closes the joints of the lines
        painter.setPen(pen);
        if (Utils::Painter::isVectorOutput(painter))
            painter.strokePath(pathOf(fCurve.lines()), pen);
        else
            painter.drawLines(fCurve.lines());
        curveRect = fCurve.rect();
        if (hasLabel && isOnCurve() && !fCurve.isEmpty())
            labelRect = drawCurveLabel(painter, fCurve.lastPoint(), text);
    }
    if (!hits)
        return;
    hits->curves.append({region.id, curveRect});
    hits->segments.append({region.id, segment.rect});
    if (!labelRect.isNull())
        hits->labels.append({region.id, labelRect});
}

TYrexIntegralPainter::TSegment TYrexIntegralPainter::segmentOf(const TRange &region, double y) const
{
    TSegment segment;
    const TRange bounds = region.sorted();
    const bool isReversed = fPlotter.horzAxis().direction() == 1;
    double left = 0.0;
    double right = 0.0;
    for (const TYrexVisiblePiece &piece : fPlotter.visiblePieces(horzDir)) {
        const int outcome = piece.values.compare(bounds);
        if (outcome != cInside && outcome != cAround && outcome != cBeginsBelow && outcome != cEndsAbove)
            continue;
        const TLinearMap map =
            isReversed ? TLinearMap::through(piece.values.a, piece.values.b, piece.places.b, piece.places.a)
                       : TLinearMap::through(piece.values.a, piece.values.b, piece.places.a, piece.places.b);
        const bool cutsLow = outcome == cAround || outcome == cBeginsBelow;
        const bool cutsHigh = outcome == cAround || outcome == cEndsAbove;
        double a = map(cutsLow ? piece.values.a : bounds.a);
        double b = map(cutsHigh ? piece.values.b : bounds.b);
        if (isReversed)
            std::swap(a, b);
        const auto appendEnd = [&](double x, bool isCut, double inwards) {
            if (isCut) {
                segment.marks.append(QLineF(x + inwards, y - cHalfTick, x, y));
                segment.marks.append(QLineF(x + inwards, y + cHalfTick, x, y));
            } else {
                segment.marks.append(QLineF(x, y - cHalfTick, x, y + cHalfTick));
            }
        };
        appendEnd(a, isReversed ? cutsHigh : cutsLow, cHalfTick);
        appendEnd(b, isReversed ? cutsLow : cutsHigh, -cHalfTick);
        left = segment.lines.isEmpty() ? a : std::min(left, a);
        right = segment.lines.isEmpty() ? b : std::max(right, b);
        segment.lines.append(QLineF(a, y, b, y));
    }
    if (segment.lines.isEmpty())
        return segment;
    segment.rect = QRectF(left, y - cHalfTick, right - left, 2.0 * cHalfTick) & fCurves;
    const QLineF &middle = segment.lines.at(segment.lines.size() / 2);
    segment.labelAnchor = QPointF((middle.x1() + middle.x2()) / 2, y);
    return segment;
}

QRectF TYrexIntegralPainter::drawCurveLabel(QPainter &painter, const QPointF &at, const QString &text) const
{
    const double width = fTypesetter.width(text);
    const double height = fTypesetter.height();
    painter.setPen(labelPen());
    if (isHorizontal()) {
        fTypesetter.draw(painter, QPointF(at.x(), at.y() + height / 2), text);
        return QRectF(at.x(), at.y() - height / 2, width, height);
    }
    painter.save();
    painter.translate(at.x() + height, at.y() + width / 2);
    painter.rotate(-90.0);
    fTypesetter.draw(painter, QPointF(0.0, 0.0), text);
    painter.restore();
    return QRectF(at.x(), at.y() - width / 2, height, width);
}

void TYrexIntegralPainter::drawSegmentLabels(QPainter &painter, const TYrexIntegrationRegions &regions,
                                             TYrexIntegralHits *hits) const
{
    double room = isHorizontal() ? fLabels.first().height : 0.0;
    if (!isHorizontal()) {
        for (const T1DLabelInfo &label : fLabels)
            room = std::max(room, label.width);
    }
    if (!(room - cLabelDistance * cHalfTick < fCurves.height() * (1.0 - fProperties.rangeMargin)))
        return;
    QVector<T1DLabelInfo> sorted = fLabels;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const T1DLabelInfo &l, const T1DLabelInfo &r) { return l.anchor.x() < r.anchor.x(); });
    for (const TYrexVisiblePiece &piece : fPlotter.visiblePieces(horzDir)) {
        const QRectF rect(piece.places.a, fCurves.top(), piece.places.span(), fCurves.height());
        T1DLabelArranger arranger;
        for (const T1DLabelInfo &label : qAsConst(sorted)) {
            if (rect.contains(label.anchor))
                arranger.append(label);
        }
        arranger.arrange(rect, isHorizontal() ? T1DLabelArranger::horizontalText : T1DLabelArranger::verticalText,
                         T1DLabelArranger::integralStrip);
        for (const T1DLabelInfo &label : arranger.labels()) {
            if (!label.hasRoom)
                continue;
            const QRectF drawn = drawSegmentLabel(painter, label, room);
            if (hits)
                hits->labels.append({regions.at(label.index)->id, drawn});
        }
    }
}

/// A leader line from the segment's label anchor to the arranged place, and the text below it.
QRectF TYrexIntegralPainter::drawSegmentLabel(QPainter &painter, const T1DLabelInfo &label, double room) const
{
    const double y = label.anchor.y();
    const QPointF path[] = {label.anchor,
                            {label.anchor.x(), y + cHalfTick},
                            {label.pos, y + 2.0 * cHalfTick},
                            {label.pos, y + 3.0 * cHalfTick}};
    QPen leader = labelPen();
    leader.setWidthF(fPen.widthF() * cLeaderWidth);
    leader.setJoinStyle(Qt::RoundJoin);
    painter.setPen(leader);
    painter.drawPolyline(path, 4);
    painter.setPen(labelPen());
    const double top = y + cLabelDistance * cHalfTick;
    if (isHorizontal()) {
        fTypesetter.draw(painter, QPointF(label.pos - label.width / 2, top + room), label.text);
        return QRectF(label.pos - label.width / 2, top, label.width, label.height);
    }
    painter.save();
    painter.translate(label.pos + label.height / cUprightGlyph, top + room);
    painter.rotate(-90.0);
    fTypesetter.draw(painter, QPointF(0.0, 0.0), label.text);
    painter.restore();
    return QRectF(label.pos - label.height / 2, top, label.height, label.width);
}
