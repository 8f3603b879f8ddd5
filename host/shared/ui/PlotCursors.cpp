#include "ui/PlotCursors.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <functional>

namespace {

constexpr int cSide = 32;
constexpr double cLine = 1.75;
constexpr double cHalo = 4.5;
const QColor cInk(0x2B, 0x2F, 0x36);

QPainterPath cornerArrow()
{
    QPainterPath path;
    path.addPolygon(QPolygonF({{0.5, 0.5}, {0.5, 10.5}, {3.5, 7.5}, {7.5, 7.5}, {0.5, 0.5}}));
    return path;
}

QCursor drawn(const QPainterPath &path, const QPainterPath &arrow, const QPoint &hotSpot)
{
    const double ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap(QSize(cSide, cSide) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, cHalo, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
    painter.drawPath(arrow);
    painter.setPen(QPen(cInk, cLine, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
    painter.setBrush(cInk);
    painter.drawPath(arrow);
    painter.end();
    return QCursor(pixmap, hotSpot.x(), hotSpot.y());
}

QCursor magnifier(bool plus)
{
    QPainterPath path;
    path.addEllipse(QPointF(17, 17), 7, 7);
    path.moveTo(22.2, 22.2);
    path.lineTo(29, 29);
    path.moveTo(13.5, 17);
    path.lineTo(20.5, 17);
    if (plus) {
        path.moveTo(17, 13.5);
        path.lineTo(17, 20.5);
    }
    return drawn(path, cornerArrow(), QPoint(0, 0));
}

/// A gap in an axis, with arrows that open or close it.
QCursor gap(bool closes)
{
    QPainterPath path;
    for (const double side : {-1.0, 1.0}) {
        const double from = 19 + side * 3;
        path.moveTo(from - 2, 26);
        path.lineTo(from + 2, 18);
        path.moveTo(19 + side * 11, 22);
        path.lineTo(from + side * 1.5, 22);
        if (closes) {
            path.moveTo(19 + side * 7.5, 19.5);
            path.lineTo(19 + side * 5, 22);
            path.lineTo(19 + side * 7.5, 24.5);
        }
    }
    return drawn(path, cornerArrow(), QPoint(0, 0));
}

} // namespace

namespace PlotCursors {

QCursor zoomIn()
{
    static const QCursor cCursor = magnifier(true);
    return cCursor;
}

QCursor zoomOut()
{
    static const QCursor cCursor = magnifier(false);
    return cCursor;
}

QCursor cross()
{
    static const QCursor cCursor(Qt::CrossCursor);
    return cCursor;
}

QCursor cut()
{
    static const QCursor cCursor = gap(false);
    return cCursor;
}

QCursor uncut()
{
    static const QCursor cCursor = gap(true);
    return cCursor;
}

} // namespace PlotCursors
