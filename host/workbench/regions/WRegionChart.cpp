#include "WRegionChart.h"

#include <QFontInfo>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace {

constexpr double cReach = 9.0; // px about a point
constexpr int cDark = 128;     // lightness below which paper is dark

} // namespace

WRegionChart::WRegionChart(QWidget *parent)
    : QWidget(parent)
{
    setMouseTracking(true);
    setAccessibleName(tr("Chart of region values"));
}

void WRegionChart::setChart(const TValueChart &chart)
{
    fChart = chart;
    update();
}

void WRegionChart::setHighlighted(int row)
{
    if (row == fHighlighted)
        return;
    fHighlighted = row;
    update();
}

TValueChart::TLook WRegionChart::look() const
{
    TValueChart::TLook look;
    look.fFont = font();
    look.fFont.setPixelSize(QFontInfo(font()).pixelSize());
    look.fInk = palette().color(QPalette::Text);
    look.fPaper = palette().color(QPalette::Base);
    look.fHighlight = palette().color(QPalette::Highlight);
    look.fIsForUser = true;
    look.fOnDark = look.fPaper.lightness() < cDark;
    return look;
}

void WRegionChart::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    fChart.draw(painter, rect(), look(), fHighlighted);
}

void WRegionChart::mouseMoveEvent(QMouseEvent *event)
{
    int nearest = -1;
    double reach = cReach;
    const TValueChart::TLook shown = look();
    for (int i = 0; i < fChart.size(); ++i) {
        const QPointF point = fChart.pointAt(i, rect(), shown);
        const QPointF away = point - event->localPos();
        if (point.isNull() || std::hypot(away.x(), away.y()) > reach)
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
