#include "plot/TCurveLayer.h"
#include "plot/TColumnFiller.h"
#include <QImage>
#include <QPainter>
#include <QThread>
#include <thread>
#include <vector>

void TCurveLayer::append(const QSharedPointer<const TReducedCurve> &curve, const QRect &clip, double penWidth,
                         const QColor &color, bool antialiasing)
{
    fJobs.append({curve, clip, penWidth, color, antialiasing});
    fBounds |= clip;
}

void TCurveLayer::paint(QPainter &painter)
{
    if (fJobs.isEmpty())
        return;
    QImage image(fBounds.size(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return;
    image.fill(Qt::transparent);
    const int count = qBound(1, QThread::idealThreadCount(), fBounds.width());
    const TColumnFiller::TTarget target{reinterpret_cast<QRgb *>(image.bits()), image.bytesPerLine() / 4,
                                        fBounds.topLeft()};
    const auto fill = [this, target, count](int part) { // a band of columns, which no other thread touches
        const int from = fBounds.left() + int(qint64(fBounds.width()) * part / count);
        const int to = fBounds.left() + int(qint64(fBounds.width()) * (part + 1) / count);
        const QRect band(from, fBounds.top(), to - from, fBounds.height());
        for (const TJob &job : fJobs) {
            const QRect clip = job.clip & band;
            if (clip.isEmpty())
                continue;
            TColumnFiller filler(clip, job.penWidth);
            filler.setAntialiasing(job.antialiasing);
            for (const QVector<QPointF> &line : job.curve->lines) {
                filler.addLine(line);
                filler.blend(target, job.color);
            }
        }
    };
    std::vector<std::thread> threads;
    for (int part = 1; part < count; ++part)
        threads.emplace_back(fill, part);
    fill(0);
    for (std::thread &thread : threads)
        thread.join();

    painter.save();
    painter.resetTransform();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    const QTransform device = painter.deviceTransform();
    image.setDevicePixelRatio(device.m11());
    painter.drawImage(device.inverted().map(QPointF(fBounds.topLeft())), image);
    painter.restore();
    fJobs.clear();
    fBounds = QRect();
}
