#include "tables/TValueChart.h"

#include "plot/ColorUtils.h"
#include "plot/TTypesetter.h"
#include "settings/TNumberFormat.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

// logical pixels
constexpr double cRadius = 3.5;
constexpr double cHighlightRadius = 6.0;
constexpr double cMargin = 6.0;
constexpr double cTick = 4.0;
constexpr double cGap = 2.0;

constexpr double cWantedTicks = 7.0;
constexpr int cMostTicks = 50; // of a scale without a sound step
constexpr double cRoom = 0.06; // of the span, beyond the outermost points
constexpr double cFarthest = 1e300;
constexpr double cFarOut = 1e6; // beyond any frame

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

QString tickText(double value, double step, bool isForUser)
{
    constexpr int cDigits = 6;
    const double rounded = std::round(value / step) * step; // no -1e-17 for zero
    QString plain = QString::number(rounded + 0.0, 'g', cDigits);
    return isForUser ? TNumberFormat::shown(plain) : plain.replace('-', QChar(0x2212));
}

} // namespace

QVector<double> TValueChart::TScale::ticks() const
{
    QVector<double> all;
    const double first = std::ceil(fLow / fStep) * fStep;
    for (int i = 0; i < cMostTicks && first + i * fStep <= fHigh; ++i)
        all.append(first + i * fStep);
    return all;
}

TValueChart::TScale TValueChart::scaleOf(const QVector<double> &values, bool withZero)
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

void TValueChart::takeScales()
{
    const bool throughZero = fHasLine && fIntercept == 0.0;
    fHorz = scaleOf(fX, throughZero);
    fVert = scaleOf(fY, throughZero);
}

void TValueChart::setPoints(const QVector<double> &x, const QVector<double> &y, const QColor &color)
{
    fX = x;
    fY = y;
    for (int i = 0; i < size(); ++i) { // a half of a point stretches no axis
        if (!(std::abs(fX.at(i)) < cFarthest) || !(std::abs(fY.at(i)) < cFarthest))
            fX[i] = fY[i] = std::nan("");
    }
    fColor = color;
    setLine(TLinearFit());
}

void TValueChart::setTitles(const QString &x, const QString &y)
{
    fXTitle = x;
    fYTitle = y;
}

void TValueChart::setLine(const TLinearFit &line)
{
    fHasLine = line.isValid && std::isfinite(line.slope) && std::isfinite(line.intercept);
    fSlope = line.slope;
    fIntercept = line.intercept;
    takeScales();
}

QRectF TValueChart::frame(const QRectF &area, const TLook &look) const
{
    const TTypesetter letters(look.fFont);
    double widest = 0.0;
    for (const double tick : fVert.ticks())
        widest = std::max(widest, letters.width(tickText(tick, fVert.fStep, look.fIsForUser)));
    const double margin = cMargin * look.fUnit;
    return area.adjusted(margin + widest + (cTick + cGap) * look.fUnit, margin + letters.height(), -2 * margin,
                         -margin - 2 * letters.height() - cTick * look.fUnit);
}

QPointF TValueChart::place(const QRectF &frame, double x, double y) const
{
    return {frame.left() + (x - fHorz.fLow) / (fHorz.fHigh - fHorz.fLow) * frame.width(),
            frame.bottom() - (y - fVert.fLow) / (fVert.fHigh - fVert.fLow) * frame.height()};
}

QPointF TValueChart::pointAt(int row, const QRectF &area, const TLook &look) const
{
    if (row < 0 || row >= size() || !std::isfinite(fX.at(row)))
        return QPointF();
    return place(frame(area, look), fX.at(row), fY.at(row));
}

void TValueChart::drawHorzNumbers(QPainter &painter, const QRectF &frame, const TLook &look) const
{
    const TTypesetter letters(look.fFont);
    const double tick = cTick * look.fUnit;
    const double widest = letters.width(tickText(fHorz.fHigh, fHorz.fStep, look.fIsForUser)) * 1.6;
    double free = frame.left() - widest;
    for (const double value : fHorz.ticks()) {
        const double x = place(frame, value, 0.0).x();
        painter.drawLine(QPointF(x, frame.bottom()), QPointF(x, frame.bottom() + tick));
        if (x - free < widest / 2)
            continue; // it would run into the number before
        letters.draw(painter, QRectF(x - widest, frame.bottom() + tick, 2 * widest, letters.height()), Qt::AlignHCenter,
                     tickText(value, fHorz.fStep, look.fIsForUser));
        free = x + widest / 2;
    }
}

void TValueChart::drawAxes(QPainter &painter, const QRectF &area, const TLook &look) const
{
    const QRectF inner = frame(area, look);
    const TTypesetter letters(look.fFont);
    const double margin = cMargin * look.fUnit;
    QColor quiet = look.fInk;
    quiet.setAlphaF(0.5);
    painter.setPen(QPen(quiet, look.fUnit));
    painter.drawLine(inner.topLeft(), inner.bottomLeft());
    painter.drawLine(inner.bottomLeft(), inner.bottomRight());
    drawHorzNumbers(painter, inner, look);
    double above = inner.bottom() + letters.height();
    for (const double value : fVert.ticks()) {
        const double y = place(inner, 0.0, value).y();
        const double left = inner.left() - cTick * look.fUnit;
        painter.drawLine(QPointF(left, y), QPointF(inner.left(), y));
        if (y > above)
            continue; // the number would run into the one below
        above = y - letters.height();
        letters.draw(
            painter,
            QRectF(area.left(), y - letters.height() / 2, left - cGap * look.fUnit - area.left(), letters.height()),
            Qt::AlignRight, tickText(value, fVert.fStep, look.fIsForUser));
    }
    painter.setPen(look.fInk);
    const auto title = [&](const QRectF &room, int alignment, const QString &text) {
        letters.draw(painter, room, alignment, letters.wrapped(text, room.width(), 1).value(0));
    };
    title(QRectF(inner.left(), area.bottom() - margin - letters.height(), inner.width(), letters.height()),
          Qt::AlignHCenter, fXTitle);
    const double half = fFacts.isEmpty() ? area.width() : area.width() / 2;
    title(QRectF(area.left() + margin, area.top(), half - 2 * margin, letters.height() + margin), Qt::AlignLeft,
          fYTitle);
    title(QRectF(area.left() + half, area.top(), area.width() - half - margin, letters.height() + margin),
          Qt::AlignRight, fFacts);
}

void TValueChart::drawLine(QPainter &painter, const QRectF &frame, const TLook &look) const
{
    if (!fHasLine)
        return;
    painter.save();
    painter.setClipRect(frame, Qt::IntersectClip);
    QColor color = look.fInk;
    color.setAlphaF(0.7);
    painter.setPen(QPen(color, 1.2 * look.fUnit));
    const auto onLine = [this, &frame](double x) {
        const QPointF point = place(frame, x, fIntercept + fSlope * x);
        return QPointF(point.x(), qBound(-cFarOut, point.y(), cFarOut)); // painters count pixels in 32 bits
    };
    painter.drawLine(onLine(fHorz.fLow), onLine(fHorz.fHigh));
    painter.setPen(QPen(look.fOnDark ? Utils::Color::onDarkPaper(fColor) : fColor, look.fUnit));
    for (int i = 0; i < size(); ++i) {
        if (std::isfinite(fX.at(i)))
            painter.drawLine(place(frame, fX.at(i), fY.at(i)), onLine(fX.at(i)));
    }
    painter.restore();
}

void TValueChart::drawPoints(QPainter &painter, const QRectF &frame, const TLook &look, int highlighted) const
{
    painter.setPen(QPen(look.fPaper, look.fUnit));
    painter.setBrush(look.fOnDark ? Utils::Color::onDarkPaper(fColor) : fColor);
    for (int i = 0; i < size(); ++i) {
        if (std::isfinite(fX.at(i)) && i != highlighted)
            painter.drawEllipse(place(frame, fX.at(i), fY.at(i)), cRadius * look.fUnit, cRadius * look.fUnit);
    }
    if (highlighted >= 0 && highlighted < size() && std::isfinite(fX.at(highlighted))) {
        painter.setPen(QPen(look.fHighlight, 2.0 * look.fUnit));
        painter.drawEllipse(place(frame, fX.at(highlighted), fY.at(highlighted)), cHighlightRadius * look.fUnit,
                            cHighlightRadius * look.fUnit);
    }
}

void TValueChart::draw(QPainter &painter, const QRectF &area, const TLook &look, int highlighted) const
{
    const QRectF inner = frame(area, look);
    if (isEmpty() || inner.width() <= 0.0 || inner.height() <= 0.0)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    drawAxes(painter, area, look);
    drawLine(painter, inner, look);
    drawPoints(painter, inner, look, highlighted);
    painter.restore();
}

void TValueChart::store(TDataStream &stream) const
{
    stream.writeDoubles(fX);
    stream.writeDoubles(fY);
    stream << fColor << fXTitle << fYTitle << fFacts << fHasLine << fSlope << fIntercept;
}

void TValueChart::load(TDataStream &stream)
{
    *this = TValueChart();
    QVector<double> x;
    QVector<double> y;
    QColor color;
    TLinearFit line;
    stream.readDoubles(x);
    stream.readDoubles(y);
    Utils::Stream::read(stream, color);
    stream >> fXTitle >> fYTitle >> fFacts >> line.isValid >> line.slope >> line.intercept;
    if (!stream.isGood() || x.size() != y.size()) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return;
    }
    setPoints(x, y, color);
    setLine(line);
}
