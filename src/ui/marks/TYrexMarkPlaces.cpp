#include "TYrexMarkPlaces.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"

#include <QPainter>
#include <cmath>

namespace {

constexpr double cTipMargin = 3.0; // pixels

} // namespace

double YrexMarkPlaces::xAt(const TYrexSpectrum &spectrum, double place, int unit)
{
    return yrexConvertX(spectrum.firstX() + place * spectrum.xStep(), spectrum.origXUnits(), unit);
}

double YrexMarkPlaces::canvasX(const TCanvasYrexSpectrum &item, double place)
{
    const TYrexSpectrum *spectrum = item.currentSpectrum();
    const T1DYrexPlot *plot = item.activeYrexPlot();
    double x = std::nan("");
    if (spectrum && plot)
        plot->plotter()->scale2Canvas(horzDir, xAt(*spectrum, place, plot->xUnits()), x);
    return x;
}

void YrexMarkPlaces::paintTip(QPainter &painter, const QString &text, const QPointF &place, const QRectF &room)
{
    const QFontMetricsF metrics(painter.font());
    QRectF plate(place, QSizeF(metrics.horizontalAdvance(text) + 2 * cTipMargin, metrics.height() + 2 * cTipMargin));
    plate.moveRight(qMin(plate.right(), room.right()));
    plate.moveBottom(qMin(plate.bottom(), room.bottom()));
    plate.moveLeft(qMax(plate.left(), room.left()));
    plate.moveTop(qMax(plate.top(), room.top()));
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 220));
    painter.drawRoundedRect(plate, cTipMargin, cTipMargin);
    painter.setPen(QColor(0x20, 0x24, 0x2A));
    painter.drawText(plate, Qt::AlignCenter, text);
    painter.restore();
}
