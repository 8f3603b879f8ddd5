#include "TYrexModePaint.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexModePlot.h"
#include "plot/ColorUtils.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

namespace {

constexpr int cMostLetters = 500;    // of a note; names of files and spectra are in it
constexpr double cTick = 7.0;        // pixels
constexpr double cTickGap = 3.0;     // from the peak to its tick
constexpr double cTickFont = 0.75;   // of the view's
constexpr double cPlateRoom = 5.0;   // around a text
constexpr double cPlateAway = 14.0;  // from the pointer
constexpr double cCursorSize = 32.0; // which hangs below and to the right of its acting point
constexpr double cPlateCorner = 3.0;
const QColor cTextColor(0x2B, 0x2F, 0x36);

QColor withAlpha(QColor color, double alpha)
{
    color.setAlphaF(alpha);
    return color;
}

/// Saves the painter, and clips it where told.
class TPainterState
{
public:
    explicit TPainterState(QPainter &painter, const QRectF &clip = QRectF())
        : fPainter(painter)
    {
        fPainter.save();
        if (!clip.isNull())
            fPainter.setClipRect(clip.adjusted(-1.0, -1.0, 1.0, 1.0), Qt::IntersectClip);
    }
    ~TPainterState() { fPainter.restore(); }
    TPainterState(const TPainterState &) = delete;
    TPainterState &operator=(const TPainterState &) = delete;

private:
    QPainter &fPainter;
};

} // namespace

TYrexModePaint::TYrexModePaint(QPainter &painter, const TYrexModePlot &plot)
    : fPainter(painter)
    , fPlot(plot)
    , fCurves(plot.curves())
{
}

QColor TYrexModePaint::deletionColor()
{
    return QColor(0xD0, 0x02, 0x1B);
}

QColor TYrexModePaint::markColor()
{
    return Utils::Color::cSelectionColors.first();
}

QColor TYrexModePaint::ink(const QColor &color) const
{
    return fPlot.plotter().ink(color);
}

/// What is under the plot; one without a background lets the page show.
QColor TYrexModePaint::paper() const
{
    QColor own = fPlot.plotter().paper();
    if (own.isValid())
        return own;
    return fPlot.plot()->stateWord() & TBasePlot::cDarkPaper ? Utils::Color::cDarkPaper : QColor(Qt::white);
}

void TYrexModePaint::band(double fromX, double toX, const QColor &color, double alpha) const
{
    const double left = fPlot.columnOf(fromX);
    const double right = fPlot.columnOf(toX);
    const QRectF rect = QRectF(QPointF(left, fCurves.top()), QPointF(right, fCurves.bottom())).normalized();
    const TPainterState state(fPainter, fCurves);
    fPainter.fillRect(rect, withAlpha(ink(color), alpha));
    fPainter.setPen(QPen(ink(color), 1.0));
    fPainter.drawLine(rect.topLeft(), rect.bottomLeft());
    fPainter.drawLine(rect.topRight(), rect.bottomRight());
}

void TYrexModePaint::upright(double x, const QColor &color, Qt::PenStyle style) const
{
    const double column = fPlot.columnOf(x);
    const TPainterState state(fPainter, fCurves);
    fPainter.setPen(QPen(ink(color), 1.0, style));
    fPainter.drawLine(QPointF(column, fCurves.top()), QPointF(column, fCurves.bottom()));
}

void TYrexModePaint::level(double row, double left, double right, const QColor &color, Qt::PenStyle style) const
{
    if (!std::isfinite(row))
        return;
    const TPainterState state(fPainter, fCurves);
    fPainter.setPen(QPen(ink(color), 1.0, style));
    fPainter.drawLine(QPointF(left, row), QPointF(right, row));
}

void TYrexModePaint::fill(double fromPoint, double toPoint, const QColor &color, double alpha, bool toChord) const
{
    QPolygonF surface = fPlot.curveBetween(fromPoint, toPoint);
    const double base = fPlot.rowOf(fPlot.plotter().baselineScaleValue());
    if (surface.size() < 2 || (!toChord && !std::isfinite(base)))
        return;
    if (!toChord) {
        const double held = qBound(fCurves.top(), base, fCurves.bottom());
        surface.append(QPointF(surface.last().x(), held));
        surface.append(QPointF(surface.first().x(), held));
    }
    const TPainterState state(fPainter, fCurves);
    fPainter.setPen(Qt::NoPen);
    fPainter.setBrush(withAlpha(ink(color), alpha));
    fPainter.drawPolygon(surface); // the closing line is the chord
}

bool TYrexModePaint::peakTick(const QPointF &place, bool isUp, const QString &text, const QColor &color,
                              QVector<QRectF> &taken) const
{
    const double sign = isUp ? -1.0 : 1.0;
    const QPointF foot = place + QPointF(0.0, sign * cTickGap);
    const QPointF head = foot + QPointF(0.0, sign * cTick);
    const TPainterState state(fPainter);
    fPainter.setPen(QPen(ink(color), 1.5));
    fPainter.drawLine(foot, head);
    QFont font = fPainter.font();
    font.setPointSizeF(cTickFont * font.pointSizeF());
    fPainter.setFont(font);
    const QFontMetricsF metrics(fPainter.font());
    QRectF room(0.0, 0.0, metrics.horizontalAdvance(text) + 4.0, metrics.height());
    room.moveCenter(head + QPointF(0.0, sign * (room.height() / 2 + 1.0)));
    // at the rim of the curves the text comes inside
    room.moveTop(qBound(fCurves.top(), room.top(), qMax(fCurves.top(), fCurves.bottom() - room.height())));
    room.moveLeft(qBound(fCurves.left(), room.left(), qMax(fCurves.left(), fCurves.right() - room.width())));
    for (const QRectF &other : qAsConst(taken)) {
        if (other.intersects(room))
            return false;
    }
    taken.append(room);
    fPainter.fillRect(room, withAlpha(paper(), 0.7));
    fPainter.setPen(ink(cTextColor));
    fPainter.drawText(room, Qt::AlignCenter, text);
    return true;
}

void TYrexModePaint::peakCursor(const TYrexDPLib::TYrexDPPeak &peak, const QString &text, const QColor &color,
                                bool isFree) const
{
    constexpr int cLineAndRing = 3;
    constexpr int cRingAlone = 4;
    const double value = fPlot.spectrum()->values().value(int(peak.position));
    const QPointF place(fPlot.xOf(peak.position), fPlot.heightOf(value));
    {
        const TPainterState state(fPainter);
        fPainter.setTransform(fPlot.itemToView(), true);
        fPlot.plotter().drawHighlightCursor(fPainter, place, QString(), isFree ? cRingAlone : cLineAndRing, ink(color));
    }
    QPointF viewPos;
    if (fPlot.toView(place.x(), value, viewPos))
        note(viewPos, text); // as large as the other texts of modes, on a small page too
}

void TYrexModePaint::peakGoes(const TYrexDPLib::TYrexDPPeak &peak, bool crossed) const
{
    const QVector<TPlotHotArea> areas = fPlot.plot()->hotAreasOf(peak.id);
    for (const TPlotHotArea &area : areas) {
        const QRectF rect = fPlot.itemToView().mapRect(area.rect());
        if (crossed)
            cross(rect.center());
        else
            fade(rect);
    }
    QPointF place;
    const double value = fPlot.spectrum()->values().value(int(peak.position));
    if (!areas.isEmpty() || !fPlot.toView(fPlot.xOf(peak.position), value, place))
        return;
    if (crossed)
        cross(place);
    else
        ring(place, cTick, QColor(0x80, 0x80, 0x80));
}

void TYrexModePaint::tint(const QRectF &rect, const QColor &color, double alpha) const
{
    fPainter.fillRect(rect, withAlpha(ink(color), alpha));
}

void TYrexModePaint::fade(const QRectF &rect) const
{
    const TPainterState state(fPainter);
    fPainter.fillRect(rect, withAlpha(paper(), 0.6));
    fPainter.fillRect(rect, withAlpha(QColor(0x80, 0x80, 0x80), 0.2));
}

void TYrexModePaint::cross(const QPointF &centre, double radius) const
{
    const TPainterState state(fPainter);
    fPainter.setPen(QPen(ink(deletionColor()), 2.0, Qt::SolidLine, Qt::RoundCap));
    fPainter.drawLine(centre - QPointF(radius, radius), centre + QPointF(radius, radius));
    fPainter.drawLine(centre - QPointF(radius, -radius), centre + QPointF(radius, -radius));
}

void TYrexModePaint::ring(const QPointF &centre, double radius, const QColor &color) const
{
    const TPainterState state(fPainter);
    fPainter.setPen(QPen(ink(color), 1.5));
    fPainter.setBrush(Qt::NoBrush);
    fPainter.drawEllipse(centre, radius, radius);
}

void TYrexModePaint::note(const QPointF &pointer, const QString &text, const QColor &color, bool isBelow) const
{
    const TPainterState state(fPainter);
    const QString shown = text.left(cMostLetters);
    const QFontMetricsF metrics(fPainter.font());
    const QRectF bounds = metrics.boundingRect(QRectF(0.0, 0.0, 10000.0, 10000.0), Qt::AlignLeft, shown);
    QRectF plate(0.0, 0.0, std::ceil(bounds.width()) + 2 * cPlateRoom, std::ceil(bounds.height()) + cPlateRoom);
    const QRectF view(fPainter.viewport());
    plate.moveBottomLeft(pointer + QPointF(cPlateAway, -cPlateAway));
    if (isBelow && pointer.y() + cPlateAway + plate.height() < view.bottom())
        plate.moveTopLeft(pointer + QPointF(cCursorSize, cPlateAway));
    if (plate.right() > view.right())
        plate.moveRight(pointer.x() - cPlateAway);
    if (plate.top() < view.top())
        plate.moveTop(pointer.y() + cPlateAway);
    plate.moveLeft(qMax(plate.left(), view.left()));
    fPainter.setPen(QPen(withAlpha(ink(color.isValid() ? color : QColor(0x60, 0x64, 0x6A)), 0.8), 1.0));
    fPainter.setBrush(withAlpha(paper(), 0.92));
    fPainter.drawRoundedRect(plate, cPlateCorner, cPlateCorner);
    fPainter.setPen(ink(color.isValid() ? color : cTextColor));
    fPainter.drawText(plate, Qt::AlignCenter, shown);
}
