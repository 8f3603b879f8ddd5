#include "TYrexMarkPlaces.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <limits>

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

QVector<TYrexMarkPlace> YrexMarkPlaces::inOrder(const TCanvasYrexSpectrum &item)
{
    const TYrexSpectrum *spectrum = item.currentSpectrum();
    if (!spectrum || !item.activeYrexPlot())
        return {};
    QVector<TYrexMarkPlace> marks;
    for (const TYrexDPLib::TYrexDPPeak *peak : spectrum->peaks())
        marks.append({peak->id, true, canvasX(item, peak->position)});
    for (const TYrexIntegrationRegion *region : spectrum->integrals())
        marks.append({region->id, false, canvasX(item, (region->boundA + region->boundB) / 2.0)});
    const auto place = [](const TYrexMarkPlace &mark) { // an order needs numbers
        return std::isnan(mark.fCanvasX) ? std::numeric_limits<double>::max() : mark.fCanvasX;
    };
    std::stable_sort(marks.begin(), marks.end(), [&place](const TYrexMarkPlace &l, const TYrexMarkPlace &r) {
        return l.fIsPeak != r.fIsPeak ? l.fIsPeak : place(l) < place(r);
    });
    return marks;
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
