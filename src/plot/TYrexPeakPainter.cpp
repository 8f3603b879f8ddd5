#include "TYrexPeakPainter.h"

#include "T1DYrexPlotter.h"
#include "TYrexPeakPlotProperties.h"
#include "plot/PainterUtils.h"
#include "plot/T1DLabelArranger.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

enum TPosition { cAtTop = 0, cAtBottom = 1, cAtPeak = 2, cGroups = 4 };

constexpr double cGap = 5.0;            // between peak, tick and text
constexpr double cTick = 20.0;          // length of the tick of a peak
constexpr double cStub = 10.0;          // upright part of a leader line at its peak
constexpr double cBend = 30.0;          // where the slanted part ends
constexpr double cLeader = 40.0;        // where the leader line ends
constexpr double cLeaderWidth = 0.6;    // of the pen's width
constexpr double cHighlightWidth = 2.0; // of the pen's width
constexpr double cTolerance = 1e-12;    // relative, of places that count as the same
constexpr double cUprightGlyph = 4.0;   // part of the height by which a turned base line stands right of the middle

bool isSame(double l, double r)
{
    return std::abs(l - r) <= cTolerance * std::max({1.0, std::abs(l), std::abs(r)});
}

bool isSame(const QRectF &l, const QRectF &r)
{
    return isSame(l.left(), r.left()) && isSame(l.top(), r.top()) && isSame(l.right(), r.right()) &&
           isSame(l.bottom(), r.bottom());
}

} // namespace

struct TYrexPeakPainter::TPiece
{
    TRange values;  // of the horizontal axis
    TRange heights; // of the vertical axis
    QRectF rect;
    QRectF fullWidth; // the vertical piece across all curves
    bool isFirst;     // of the vertical pieces: there the labels of a strip are drawn
};

TYrexPeakPainter::TYrexPeakPainter(const T1DYrexPlotter &plotter, const TYrexPeakPlotProperties &properties)
    : fPlotter(plotter)
    , fProperties(properties)
    , fTypesetter(Utils::Painter::fontSizeInPixels(properties.font))
    , fPen(properties.pen)
{
    if (properties.flags & TYrexPeakPlotProperties::cInCurveColor)
        fPen.setColor(properties.curveColor);
    fPen.setColor(plotter.ink(fPen.color()));
}

void TYrexPeakPainter::highlight(const QSet<QUuid> &ids, const QColor &color)
{
    fHighlights = &ids;
    fPen.setColor(fPlotter.ink(color));
    fPen.setWidthF(fPen.widthF() * cHighlightWidth);
}

bool TYrexPeakPainter::isHorizontal() const
{
    return fProperties.orientation == 1;
}

bool TYrexPeakPainter::isAtPeak() const
{
    return fProperties.position == cAtPeak;
}

bool TYrexPeakPainter::isAtBottom() const
{
    return fProperties.position == cAtBottom;
}

QVector<T1DLabelInfo> TYrexPeakPainter::labelsIn(const TPiece &piece, const TPeaks &peaks, const QStringList &texts,
                                                 bool sortAscending) const
{
    QVector<T1DLabelInfo> labels;
    for (int i = 0; i < peaks.size(); ++i) {
        const TYrexDPLib::TYrexDPPeak &peak = peaks.at(i);
        if (!piece.values.contains(peak.position) ||
            (fProperties.position == cGroups && !piece.heights.contains(peak.intensity)))
            continue;
        T1DLabelInfo label;
        label.anchor = fPlotter.scale2Canvas(QPointF(peak.position, peak.intensity));
        label.value = peak.position;
        label.text = texts.value(i);
        label.width = fTypesetter.width(label.text);
        label.height = fTypesetter.height();
        label.weight = std::abs(peak.intensity);
        label.index = i;
        label.below = !peak.positive;
        labels.append(label);
    }
    std::stable_sort(labels.begin(), labels.end(), [sortAscending](const T1DLabelInfo &l, const T1DLabelInfo &r) {
        return sortAscending ? l.value < r.value : l.value > r.value;
    });
    return labels;
}

/// Height of the row of texts.
double TYrexPeakPainter::extent(const QVector<T1DLabelInfo> &labels) const
{
    if (isHorizontal())
        return fTypesetter.height();
    double widest = 0.0;
    for (const T1DLabelInfo &label : labels)
        widest = std::max(widest, label.width);
    return widest;
}

double TYrexPeakPainter::stripHeight(const TPeaks &peaks, const QStringList &texts) const
{
    if (isAtPeak())
        return 0.0;
    QVector<T1DLabelInfo> labels;
    for (const TYrexVisiblePiece &horz : fPlotter.visiblePieces(horzDir))
        labels += labelsIn({horz.values, fPlotter.vertAxis().drawnScale(), {}, {}, true}, peaks, texts, true);
    if (labels.isEmpty())
        return 0.0;
    return fPlotter.getPlotCurvesRect().height() * fProperties.margin + fPlotter.properties().plotAreaMargin +
           extent(labels) + cGap + cLeader;
}

void TYrexPeakPainter::draw(QPainter &painter, const TPeaks &peaks, const QStringList &texts, THits *hits,
                            bool sortAscending) const
{
    if (hits)
        hits->clear();
    const QRectF curves = fPlotter.getPlotCurvesRect();
    painter.save();
    painter.setPen(fPen);
    bool isFirst = true;
    for (const TYrexVisiblePiece &vert : fPlotter.visiblePieces(vertDir)) {
        const QRectF band(curves.left(), vert.places.a, curves.width(), vert.places.span());
        for (const TYrexVisiblePiece &horz : fPlotter.visiblePieces(horzDir)) {
            const QRectF rect(horz.places.a, band.top(), horz.places.span(), band.height());
            const TPiece piece{horz.values, vert.values, rect, band, isFirst};
            T1DLabelArranger arranger;
            for (const T1DLabelInfo &label : labelsIn(piece, peaks, texts, sortAscending))
                arranger.append(label);
            arranger.arrange(rect, isHorizontal() ? T1DLabelArranger::horizontalText : T1DLabelArranger::verticalText,
                             isAtPeak() ? T1DLabelArranger::atPeak : T1DLabelArranger::peakStrip);
            if (isAtPeak())
                drawAtPeaks(painter, piece, arranger, peaks, hits);
            else
                drawStrip(painter, piece, arranger, peaks, hits);
        }
        isFirst = false;
    }
    painter.restore();
}

/// From 5 above the peak (below a valley) 20 further, held within the piece; without a length where nothing is left.
QLineF TYrexPeakPainter::tick(const T1DLabelInfo &label, const QRectF &bounds)
{
    const double way = label.below ? 1.0 : -1.0;
    const auto held = [&](double distance) {
        return QPointF(qBound(bounds.left(), label.anchor.x(), bounds.right()),
                       qBound(bounds.top(), label.anchor.y() + way * distance, bounds.bottom()));
    };
    const QLineF line(held(cGap), held(cGap + cTick));
    return isSame(line.y1(), line.y2()) ? QLineF() : line;
}

void TYrexPeakPainter::drawTicks(QPainter &painter, const QVector<QLineF> &ticks) const
{
    if (!(fProperties.flags & TYrexPeakPlotProperties::cShowTicks))
        return;
    for (const QLineF &tick : ticks) {
        if (!tick.isNull())
            painter.drawLine(tick);
    }
}

/// `foot` is the left end of the base line, for turned texts the lower one. Answers the text's box.
QRectF TYrexPeakPainter::drawText(QPainter &painter, const QPointF &foot, const QString &text) const
{
    const double width = fTypesetter.width(text);
    if (isHorizontal()) {
        fTypesetter.draw(painter, foot, text);
        return QRectF(foot.x(), foot.y() - fTypesetter.height(), width, fTypesetter.height());
    }
    painter.save();
    painter.translate(foot);
    painter.rotate(-90.0);
    fTypesetter.draw(painter, QPointF(0.0, 0.0), text);
    painter.restore();
    const double high = fTypesetter.ascent() - fTypesetter.descent();
    return QRectF(foot.x() - high, foot.y() - width, high, width);
}

void TYrexPeakPainter::drawAtPeaks(QPainter &painter, const TPiece &piece, const T1DLabelArranger &arranger,
                                   const TPeaks &peaks, THits *hits) const
{
    QVector<QLineF> ticks;
    for (const T1DLabelInfo &label : arranger.labels()) {
        if (!label.hasRoom || !isDrawn(peaks.at(label.index)))
            continue;
        QRectF rect = label.originalRect(!isHorizontal());
        if (label.below)
            rect.translate(0.0, rect.height() + T1DLabelInfo::cFootDistance);
        if (isSame(rect & piece.fullWidth, rect)) {
            rect = drawText(painter, isHorizontal() ? rect.bottomLeft() : rect.bottomRight(), label.text);
            if (hits)
                hits->append({peaks.at(label.index).id, rect});
        }
        ticks.append(tick(label, piece.rect));
    }
    drawTicks(painter, ticks);
}

void TYrexPeakPainter::drawStrip(QPainter &painter, const TPiece &piece, const T1DLabelArranger &arranger,
                                 const TPeaks &peaks, THits *hits) const
{
    QVector<QLineF> ticks;
    for (const T1DLabelInfo &label : arranger.labels()) {
        if (isDrawn(peaks.at(label.index)) && std::isfinite(label.anchor.x()) && std::isfinite(label.anchor.y()))
            ticks.append(tick(label, piece.rect));
    }
    drawTicks(painter, ticks);
    const bool isGrouped = fProperties.position == cGroups; // each vertical piece has labels of its own
    if (!piece.isFirst && !isGrouped)
        return;

    const QRectF curves = isGrouped ? piece.fullWidth : fPlotter.getPlotCurvesRect();
    const double way = isAtBottom() ? 1.0 : -1.0;
    const double room = extent(arranger.labels());
    const double depth = fPlotter.getPlotCurvesRect().height() * fProperties.margin +
                         fPlotter.properties().plotAreaMargin + room + cGap + cLeader;
    const double start = isAtBottom() ? curves.bottom() - depth : curves.top() + depth;
    const double foot = start + way * (cLeader + cGap) + (isAtBottom() ? room : 0.0);
    QPen leader = fPen;
    leader.setWidthF(fPen.widthF() * cLeaderWidth);
    leader.setJoinStyle(Qt::RoundJoin);
    for (const T1DLabelInfo &label : arranger.labels()) {
        if (!label.hasRoom || !isDrawn(peaks.at(label.index)))
            continue;
        const double from = label.anchor.x();
        const QPointF path[] = {{from, start},
                                {from, start + way * cStub},
                                {label.pos, start + way * cBend},
                                {label.pos, start + way * cLeader}};
        painter.setPen(leader);
        painter.drawPolyline(path, 4);
        painter.setPen(fPen);
        const double left = isHorizontal() ? label.pos - label.width / 2 : label.pos + label.height / cUprightGlyph;
        const QRectF rect = drawText(painter, QPointF(left, foot), label.text);
        if (hits)
            hits->append({peaks.at(label.index).id, rect});
    }
}
