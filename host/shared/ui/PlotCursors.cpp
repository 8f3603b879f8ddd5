#include "ui/PlotCursors.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace {

constexpr int cSide = 32;
const QPoint cCorner(0, 0);

QCursor drawn(const char *name, const QPoint &hotSpot)
{
    const double ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap(QSize(cSide, cSide) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QSvgRenderer renderer(QString(":/cursors/cursor-%1.svg").arg(QLatin1String(name)));
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(0, 0, cSide, cSide));
    painter.end();
    return QCursor(pixmap, hotSpot.x(), hotSpot.y());
}

} // namespace

namespace PlotCursors {

QCursor zoomIn()
{
    static const QCursor cCursor = drawn("zoom-in", cCorner);
    return cCursor;
}

QCursor zoomOut()
{
    static const QCursor cCursor = drawn("zoom-out", cCorner);
    return cCursor;
}

/// Points with its middle.
QCursor cross()
{
    static const QCursor cCursor = drawn("cross", QPoint(cSide / 2, cSide / 2));
    return cCursor;
}

QCursor cut()
{
    static const QCursor cCursor = drawn("cut", cCorner);
    return cCursor;
}

QCursor uncut()
{
    static const QCursor cCursor = drawn("uncut", cCorner);
    return cCursor;
}

QCursor inset()
{
    static const QCursor cCursor = drawn("inset", cCorner);
    return cCursor;
}

QCursor measure()
{
    static const QCursor cCursor = drawn("measure", cCorner);
    return cCursor;
}

} // namespace PlotCursors
