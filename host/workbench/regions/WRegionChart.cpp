#include "WRegionChart.h"

#include "plot/ColorUtils.h"
#include "settings/TNumberFormat.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

constexpr double cRadius = 3.5;
constexpr double cHighlightRadius = 6.0;
constexpr double cReach = 9.0; // px about a point
constexpr int cMargin = 6;
constexpr int cTick = 4;
constexpr double cWantedTicks = 7.0;
constexpr double cRoom = 0.06; // of the span, beyond the outermost points

/// 1, 2 or 5 times a power of ten, so that some ticks stand in the span.
double stepFor(double span)
{
    const double raw = span / cWantedTicks;
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (raw <= factor * power)
            return factor * power;
    }
    return 10.0 * power;
}

QString tickText(double value, double step)
{
    constexpr int cDigits = 6;
    const double rounded = std::round(value / step) * step; // no -1e-17 for zero
    return TNumberFormat::shown(QString::number(rounded + 0.0, 'g', cDigits));
}

} // namespace

WRegionChart::WRegionChart(QWidget *parent)
    : QWidget(parent)
{
    setMouseTracking(true);
    setAccessibleName(tr("Chart of region values"));
}

WRegionChart::TScale WRegionChart::scaleOf(const QVector<double> &values, bool withZero)
{
    TScale scale;
    bool isFirst = true;
    const auto take = [&scale, &isFirst](double value) {
        scale.fLow = isFirst ? value : std::min(scale.fLow, value);
        scale.fHigh = isFirst ? value : std::max(scale.fHigh, value);
        isFirst = false;
    };
    if (withZero)
        take(0.0);
    for (const double value : values) {
        if (std::isfinite(value))
            take(value);
    }
    double span = scale.fHigh - scale.fLow;
    if (!(span > 0.0)) {
        span = std::max(std::abs(scale.fHigh), 1.0);
        scale.fLow -= span / 2;
        scale.fHigh += span / 2;
    }
    scale.fLow -= span * cRoom;
    scale.fHigh += span * cRoom;
    scale.fStep = stepFor(scale.fHigh - scale.fLow);
    return scale;
}

void WRegionChart::setPoints(const QVector<double> &x, const QVector<double> &y, const QColor &color)
{
    fX = x;
    fY = y;
    for (int i = 0; i < fX.size() && i < fY.size(); ++i) { // a half of a point stretches no axis
        if (!std::isfinite(fX.at(i)) || !std::isfinite(fY.at(i)))
            fX[i] = fY[i] = std::nan("");
    }
    fColor = color;
    setLine(TLinearFit());
}

void WRegionChart::setTitles(const QString &x, const QString &y)
{
    fXTitle = x;
    fYTitle = y;
    update();
}

void WRegionChart::setLine(const TLinearFit &line)
{
    fLine = line;
    const bool throughZero = line.isValid && line.intercept == 0.0;
    fHorz = scaleOf(fX, throughZero);
    fVert = scaleOf(fY, throughZero);
    update();
}

void WRegionChart::setHighlighted(int row)
{
    if (row == fHighlighted)
        return;
    fHighlighted = row;
    update();
}

QRectF WRegionChart::frame() const
{
    const QFontMetrics metrics(font());
    int widest = 0;
    for (double tick = std::ceil(fVert.fLow / fVert.fStep) * fVert.fStep; tick <= fVert.fHigh; tick += fVert.fStep)
        widest = std::max(widest, metrics.horizontalAdvance(tickText(tick, fVert.fStep)));
    const int line = metrics.height();
    return QRectF(rect()).adjusted(cMargin + widest + cTick + 2, cMargin + line, -2 * cMargin,
                                   -cMargin - 2 * line - cTick);
}

QPointF WRegionChart::toWidget(double x, double y) const
{
    const QRectF place = frame();
    return {place.left() + (x - fHorz.fLow) / (fHorz.fHigh - fHorz.fLow) * place.width(),
            place.bottom() - (y - fVert.fLow) / (fVert.fHigh - fVert.fLow) * place.height()};
}

QPointF WRegionChart::pointAt(int row) const
{
    if (row < 0 || row >= fX.size() || row >= fY.size() || !std::isfinite(fX.at(row)))
        return QPointF();
    return toWidget(fX.at(row), fY.at(row));
}

void WRegionChart::drawAxes(QPainter &painter) const
{
    const QRectF place = frame();
    const QFontMetricsF metrics(font());
    QColor quiet = palette().color(QPalette::Text);
    quiet.setAlphaF(0.5);
    painter.setPen(quiet);
    painter.drawLine(place.topLeft(), place.bottomLeft());
    painter.drawLine(place.bottomLeft(), place.bottomRight());
    const double widest = metrics.horizontalAdvance(tickText(fHorz.fHigh, fHorz.fStep)) * 1.6;
    double free = place.left() - widest;
    for (double tick = std::ceil(fHorz.fLow / fHorz.fStep) * fHorz.fStep; tick <= fHorz.fHigh; tick += fHorz.fStep) {
        const double x = toWidget(tick, 0).x();
        painter.drawLine(QPointF(x, place.bottom()), QPointF(x, place.bottom() + cTick));
        if (x - free < widest / 2)
            continue; // it would run into the number before
        painter.drawText(QRectF(x - widest, place.bottom() + cTick, 2 * widest, metrics.height()), Qt::AlignCenter,
                         tickText(tick, fHorz.fStep));
        free = x + widest / 2;
    }
    for (double tick = std::ceil(fVert.fLow / fVert.fStep) * fVert.fStep; tick <= fVert.fHigh; tick += fVert.fStep) {
        const double y = toWidget(0, tick).y();
        painter.drawLine(QPointF(place.left() - cTick, y), QPointF(place.left(), y));
        painter.drawText(QRectF(0, y - metrics.height() / 2, place.left() - cTick - 2, metrics.height()),
                         Qt::AlignRight | Qt::AlignVCenter, tickText(tick, fVert.fStep));
    }
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(
        QRectF(place.left(), rect().bottom() - cMargin - metrics.height(), place.width(), metrics.height()),
        Qt::AlignCenter, metrics.elidedText(fXTitle, Qt::ElideRight, place.width()));
    painter.drawText(QRectF(cMargin, 0, width() - 2 * cMargin, metrics.height() + cMargin),
                     Qt::AlignLeft | Qt::AlignVCenter, metrics.elidedText(fYTitle, Qt::ElideRight, width()));
}

void WRegionChart::drawLine(QPainter &painter) const
{
    if (!fLine.isValid)
        return;
    painter.save();
    painter.setClipRect(frame());
    QColor color = palette().color(QPalette::Text);
    color.setAlphaF(0.7);
    painter.setPen(QPen(color, 1.2));
    painter.drawLine(toWidget(fHorz.fLow, fLine.at(fHorz.fLow)), toWidget(fHorz.fHigh, fLine.at(fHorz.fHigh)));
    painter.setPen(QPen(fColor, 1.0));
    for (int i = 0; i < fX.size(); ++i) {
        if (std::isfinite(fX.at(i)))
            painter.drawLine(pointAt(i), toWidget(fX.at(i), fLine.at(fX.at(i))));
    }
    painter.restore();
}

void WRegionChart::drawPoints(QPainter &painter) const
{
    painter.setPen(QPen(palette().color(QPalette::Base), 1.0));
    painter.setBrush(fColor);
    for (int i = 0; i < fX.size(); ++i) {
        if (std::isfinite(fX.at(i)) && i != fHighlighted)
            painter.drawEllipse(pointAt(i), cRadius, cRadius);
    }
    if (!pointAt(fHighlighted).isNull()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2.0));
        painter.drawEllipse(pointAt(fHighlighted), cHighlightRadius, cHighlightRadius);
    }
}

void WRegionChart::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    if (fX.isEmpty())
        return;
    drawAxes(painter);
    drawLine(painter);
    drawPoints(painter);
}

void WRegionChart::mouseMoveEvent(QMouseEvent *event)
{
    int nearest = -1;
    double reach = cReach;
    for (int i = 0; i < fX.size(); ++i) {
        const QPointF away = pointAt(i) - event->localPos();
        if (!std::isfinite(fX.at(i)) || std::hypot(away.x(), away.y()) > reach)
            continue;
        reach = std::hypot(away.x(), away.y());
        nearest = i;
    }
    if (nearest == fHighlighted)
        return;
    setHighlighted(nearest);
    emit hovered(nearest);
}

void WRegionChart::leaveEvent(QEvent *)
{
    if (fHighlighted < 0)
        return;
    setHighlighted(-1);
    emit hovered(-1);
}
