#include "WYrexFactorCurve.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QTimer>
#include <cmath>

namespace {

// logical pixels
constexpr int cSide = 10;
constexpr int cGap = 4;
constexpr double cLine = 1.5;
constexpr double cStep = 0.05;

QString factorText(double factor)
{
    return QString::number(factor, 'f', 2);
}

} // namespace

WYrexFactorCurve::WYrexFactorCurve(QWidget *parent)
    : QWidget(parent)
{
    setObjectName("yrexFactorCurve");
    setFixedHeight(cHeight);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    setToolTip(tr("How the factors did in the search, in the mean of its two witnesses; low is good. The search takes "
                  "the middle between the best of each, which is marked. A click takes another factor and ends the "
                  "search."));
    setAccessibleName(tr("Score over the factor"));
    hide();
}

void WYrexFactorCurve::setScores(const TScores &scores)
{
    if (scores.empty() && fIsKept)
        return;
    fIsKept = false;
    fScores = scores;
    update();
}

void WYrexFactorCurve::setFactor(double factor)
{
    fFactor = factor;
    setAccessibleDescription(tr("Factor in use: %1").arg(factorText(factor)));
    update();
}

QRectF WYrexFactorCurve::curveRect() const
{
    const int text = fontMetrics().height() + cGap;
    return QRectF(rect()).adjusted(cSide, text, -cSide, -text);
}

int WYrexFactorCurve::placeOf(double factor) const
{
    if (fScores.empty())
        return -1;
    const double first = fScores.front().fFactor;
    const double range = fScores.back().fFactor - first;
    const QRectF room = curveRect();
    return range > 0.0 ? qRound(room.left() + (factor - first) / range * room.width()) : qRound(room.center().x());
}

double WYrexFactorCurve::factorAt(int x) const
{
    if (fScores.empty())
        return 0.0;
    const QRectF room = curveRect();
    const double first = fScores.front().fFactor;
    const double last = fScores.back().fFactor;
    const double share = room.width() > 0.0 ? qBound(0.0, (x - room.left()) / room.width(), 1.0) : 0.0;
    return qBound(first, std::round((first + share * (last - first)) / cStep) * cStep, last);
}

QPointF WYrexFactorCurve::pointOf(const Utils::Matrix::TFactorScore &score) const
{
    const QRectF room = curveRect();
    return QPointF(placeOf(score.fFactor), room.bottom() - score.fScore * room.height());
}

void WYrexFactorCurve::drawAxis(QPainter &painter) const
{
    const QRectF room = curveRect();
    QColor pale = palette().color(QPalette::WindowText);
    pale.setAlphaF(0.6);
    painter.setPen(pale);
    painter.drawLine(room.bottomLeft(), room.bottomRight());
    const int below = int(room.bottom()) + cGap;
    for (int tick = int(std::ceil(fScores.front().fFactor)); tick <= fScores.back().fFactor; ++tick) {
        const int x = placeOf(tick);
        painter.drawLine(QPointF(x, room.bottom()), QPointF(x, room.bottom() + cGap - 1));
        painter.drawText(QRect(x - cSide, below, 2 * cSide, fontMetrics().height()), Qt::AlignCenter,
                         QString::number(tick));
    }
}

void WYrexFactorCurve::drawMark(QPainter &painter, double factor, const QColor &colour, bool isDashed) const
{
    const QRectF room = curveRect();
    const int x = placeOf(factor);
    if (x < room.left() || x > room.right())
        return;
    painter.setPen(QPen(colour, 1.0, isDashed ? Qt::DashLine : Qt::SolidLine));
    painter.drawLine(QPointF(x, room.top()), QPointF(x, room.bottom()));
    const QString text = factorText(factor);
    const int width = fontMetrics().horizontalAdvance(text) + 2;
    const int left = qBound(0, x - width / 2, this->width() - width);
    painter.drawText(QRect(left, 0, width, fontMetrics().height()), Qt::AlignCenter, text);
}

void WYrexFactorCurve::paintEvent(QPaintEvent *)
{
    if (fScores.empty())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().brush(QPalette::Base));
    drawAxis(painter);
    QPolygonF curve;
    for (const Utils::Matrix::TFactorScore &score : fScores)
        curve.append(pointOf(score));
    painter.setPen(QPen(palette().color(QPalette::Text), cLine));
    painter.drawPolyline(curve);
    if (fHover >= 0) // one number at a time
        drawMark(painter, factorAt(fHover), palette().color(QPalette::Disabled, QPalette::Text), true);
    else
        drawMark(painter, fFactor, palette().color(QPalette::Link), false);
}

void WYrexFactorCurve::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || fScores.empty())
        return;
    fHover = -1;
    emit factorChosen(factorAt(event->pos().x()));
}

void WYrexFactorCurve::mouseMoveEvent(QMouseEvent *event)
{
    fHover = event->pos().x();
    update();
}

/// It stands below the other controls, where a low window has no room for it.
void WYrexFactorCurve::showEvent(QShowEvent *)
{
    for (QWidget *outer = parentWidget(); outer; outer = outer->parentWidget()) {
        if (auto *area = qobject_cast<QScrollArea *>(outer)) // behind the layout
            QTimer::singleShot(0, this, [this, area] { area->ensureWidgetVisible(this, 0, cGap); });
    }
}

void WYrexFactorCurve::leaveEvent(QEvent *)
{
    fHover = -1;
    update();
}
