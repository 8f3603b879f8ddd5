#include "TPageThumbnail.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TCanvasSpectrum.h"
#include "canvas/TPage.h"
#include "plot/TBasePlot.h"
#include "stream/TDataStream.h"

#include <QBuffer>
#include <QPainter>

namespace {

constexpr double cBoldWidth = 18.0;     // canvas units, so that a curve is seen at a twentieth of its size
constexpr double cSparklineWidth = 1.2; // pixels

/// A plot turned into an overview for as long as this lives.
class TOverview
{
public:
    /// `penWidth` in canvas units.
    TOverview(TBasePlot *plot, double penWidth)
        : fPlot(plot)
    {
        if (!fPlot)
            return;
        fPlot->setState(TBasePlot::cKeepHotAreas, true);
        fBuffer.open(QIODevice::ReadWrite);
        TDataStream stream(&fBuffer);
        fPlot->setupFullView(stream);
        fPlot->properties().curvePen.setWidthF(penWidth);
    }
    ~TOverview()
    {
        if (!fPlot)
            return;
        fBuffer.seek(0);
        TDataStream stream(&fBuffer);
        fPlot->resetFullView(stream);
        fPlot->setState(TBasePlot::cKeepHotAreas, false);
    }
    TOverview(const TOverview &) = delete;
    TOverview &operator=(const TOverview &) = delete;

private:
    TBasePlot *fPlot;
    QBuffer fBuffer;
};

void paintOverview(QPainter &painter, TCanvasItem &item, double penWidth)
{
    const auto *spectrum = dynamic_cast<TCanvasSpectrum *>(&item);
    const TOverview overview(spectrum ? spectrum->activePlot() : nullptr, penWidth);
    painter.save();
    painter.translate(item.rect().topLeft());
    item.paintPicture(painter);
    painter.restore();
}

} // namespace

QPixmap pageThumbnail(const TPage &page, const QSize &size, double devicePixelRatio)
{
    QPixmap picture(size * devicePixelRatio);
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const QSizeF paper = page.size().scaled(QSizeF(size) - QSizeF(1, 1), Qt::KeepAspectRatio);
    painter.translate((size.width() - paper.width()) / 2.0, (size.height() - paper.height()) / 2.0);
    painter.fillRect(QRectF(QPointF(0, 0), paper), Qt::white);
    const double scale = paper.width() / page.size().width();
    painter.save();
    painter.scale(scale, scale);
    for (TCanvasItem *item : page.items())
        paintOverview(painter, *item, cBoldWidth);
    painter.restore();
    painter.setPen(QColor(0x90, 0x94, 0x9A));
    painter.drawRect(QRectF(QPointF(0, 0), paper));
    return picture;
}

QPixmap itemSparkline(TCanvasItem &item, const QSize &size, double devicePixelRatio)
{
    QPixmap picture(size * devicePixelRatio);
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::white);
    const QRectF box = item.rect();
    if (box.isEmpty())
        return picture;
    const double scale = qMin(size.width() / box.width(), size.height() / box.height());
    const QSizeF drawn = box.size() * scale;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate((size.width() - drawn.width()) / 2.0, (size.height() - drawn.height()) / 2.0);
    painter.scale(scale, scale);
    painter.translate(-box.topLeft());
    paintOverview(painter, item, cSparklineWidth / scale);
    return picture;
}
