#include "ui/TZoomBox.h"

#include "canvas/TCanvasSpectrum.h"
#include "plot/TBasePlot.h"
#include "settings/TNumberFormat.h"
#include "ui/PlotHabits.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

namespace {

const QColor cLine(0x4A, 0x90, 0xD9);
constexpr double cFillAlpha = 0.10;
const QColor cPlate(255, 255, 255, 225);
constexpr double cGap = 4.0; // pixels between the box and its texts

void drawLabel(QPainter &painter, const QString &text, QPointF corner, bool atRight)
{
    const QFontMetricsF metrics(painter.font());
    QRectF box(0, 0, metrics.horizontalAdvance(text) + 2 * cGap, metrics.height() + 2);
    if (atRight)
        corner.rx() -= box.width();
    box.moveTopLeft(corner);
    painter.fillRect(box, cPlate);
    painter.drawText(box, Qt::AlignCenter, text);
}

/// An intersection of Qt would be nothing for a box without height, which is what a level drag makes.
QRectF heldWithin(const QRectF &whole, const QPointF &from, const QPointF &to)
{
    const auto held = [&whole](const QPointF &pos) {
        return QPointF(qBound(whole.left(), pos.x(), whole.right()), qBound(whole.top(), pos.y(), whole.bottom()));
    };
    return QRectF(held(from), held(to)).normalized();
}

} // namespace

void TZoomBox::start(const TMouseSpot &spot)
{
    fItem = TSecurePtr<TCanvasItem>(spot.item);
    fStart = spot.itemPos;
    fEnd = spot.itemPos;
    fKeys = Qt::NoModifier;
}

void TZoomBox::moveTo(const QPointF &itemPos, Qt::KeyboardModifiers keys)
{
    fEnd = itemPos;
    fKeys = keys;
}

TBasePlot *TZoomBox::plot() const
{
    const auto *spectrum = dynamic_cast<TCanvasSpectrum *>(fItem.get());
    return spectrum ? spectrum->activePlot() : nullptr;
}

QRectF TZoomBox::curves() const
{
    return plot() ? plot()->plotter()->getPlotCurvesRect() : QRectF();
}

TZoomBox::TShape TZoomBox::shape() const
{
    const QRectF whole = curves();
    if (whole.isEmpty())
        return cNone;
    const QRectF box = heldWithin(whole, fStart, fEnd);
    const double threshold = PlotHabits::boxThreshold();
    const bool isWide = box.width() >= threshold * whole.width() && !(fKeys & Qt::ControlModifier);
    const bool isHigh = box.height() >= threshold * whole.height() && !(fKeys & Qt::ShiftModifier);
    if (isWide)
        return isHigh ? cBoth : cHorz;
    return isHigh ? cVert : cNone;
}

QRectF TZoomBox::rect() const
{
    const QRectF whole = curves();
    const QRectF box = heldWithin(whole, fStart, fEnd);
    if (shape() == cHorz)
        return QRectF(box.left(), whole.top(), box.width(), whole.height());
    if (shape() == cVert)
        return QRectF(whole.left(), box.top(), whole.width(), box.height());
    return box;
}

QRectF TZoomBox::scaleRect() const
{
    if (!plot() || shape() == cNone)
        return QRectF();
    const QRectF box = rect();
    const TBasePlotter *plotter = plot()->plotter();
    const QPointF from(plotter->canvas2Scale(horzDir, box.left()), plotter->canvas2Scale(vertDir, box.bottom()));
    const QPointF to(plotter->canvas2Scale(horzDir, box.right()), plotter->canvas2Scale(vertDir, box.top()));
    QRectF scale = QRectF(from, to).normalized();
    if (shape() == cHorz)
        scale.setHeight(0.0);
    if (shape() == cVert)
        scale.setWidth(0.0);
    return scale;
}

void TZoomBox::paint(QPainter &painter, const QTransform &itemToView) const
{
    const TShape form = shape();
    if (form == cNone)
        return;
    const TBasePlot &shown = *plot();
    const TBasePlotter &plotter = *shown.plotter();
    const QRectF units = rect();
    const QRectF box = itemToView.mapRect(units);
    painter.save();
    QColor fill = cLine;
    fill.setAlphaF(cFillAlpha);
    painter.setBrush(fill);
    painter.setPen(QPen(cLine, 1.0, Qt::DashLine));
    painter.drawRect(box);

    const auto number = [&](TAxisDir dir, double place) {
        return TNumberFormat::fixed(plotter.canvas2Scale(dir, place), shown.viewDecimals(dir));
    };
    const auto corner = [&](double x, double y) {
        QStringList parts;
        if (form != cVert)
            parts.append(number(horzDir, x));
        if (form != cHorz)
            parts.append(number(vertDir, y));
        return parts.join(", ");
    };
    painter.setPen(cLine.darker(180));
    const QFontMetricsF metrics(painter.font());
    drawLabel(painter, corner(units.left(), units.top()), box.topLeft() + QPointF(0, -metrics.height() - cGap), false);
    drawLabel(painter, corner(units.right(), units.bottom()), box.bottomRight() + QPointF(0, cGap), true);
    if (form != cVert) {
        const double dx = plotter.canvas2Scale(horzDir, units.right()) - plotter.canvas2Scale(horzDir, units.left());
        const QString text = "dx " + TNumberFormat::fixed(std::abs(dx), shown.viewDecimals(horzDir));
        const double width = metrics.horizontalAdvance(text) + 2 * cGap; // of its plate
        if (width + 2 * cGap < box.width() && 2 * metrics.height() < box.height())
            drawLabel(painter, text, box.center() - QPointF(width / 2, metrics.height() / 2), false);
    }
    painter.restore();
}
