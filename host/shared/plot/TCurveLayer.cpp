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

/// From the uppermost curve to the lowest. They are filled column by column, so the band is worked out with its columns
/// as lines and turned at the end.
void TCurveLayer::fillBand(QRgb *pixels, qptrdiff stride, int from, int to) const
{
    constexpr int cTile = 16; // pixels a side, of which both views stay in the cache
    const int height = fBounds.height();
    const QRect band(fBounds.left() + from, fBounds.top(), to - from, height);
    std::vector<QRgb> turned(size_t(to - from) * size_t(height), 0u);
    const TColumnFiller::TTarget target{turned.data(), 1, height, band.topLeft()};
    std::vector<TColumnFiller::THidden> hidden(size_t(to - from));
    int hiddenTop = band.top();                   // from which its rows count
    for (int i = fJobs.size() - 1; i >= 0; --i) { // the last one lies above, and much of the others behind it
        const TJob &job = fJobs.at(i);
        const QRect clip = job.clip & band;
        if (clip.isEmpty())
            continue;
        for (TColumnFiller::THidden &each : hidden)
            each = {each.from + hiddenTop - clip.top(), each.to + hiddenTop - clip.top()};
        hiddenTop = clip.top();
        TColumnFiller filler(clip, job.penWidth);
        filler.setAntialiasing(job.antialiasing);
        for (const QVector<QPointF> &line : job.curve->lines) {
            filler.addLine(line);
            filler.blendUnder(target, job.color, hidden.data() + clip.left() - band.left());
        }
    }
    for (int top = 0; top < height; top += cTile) {
        for (int left = from; left < to; left += cTile) {
            for (int row = top; row < std::min(height, top + cTile); ++row) {
                for (int x = left; x < std::min(to, left + cTile); ++x)
                    pixels[row * stride + x] = turned[size_t(x - from) * size_t(height) + size_t(row)];
            }
        }
    }
}

void TCurveLayer::paint(QPainter &painter)
{
    if (fJobs.isEmpty())
        return;
    QImage image(fBounds.size(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return;
    auto *pixels = reinterpret_cast<QRgb *>(image.bits());
    const qptrdiff stride = image.bytesPerLine() / 4;
    const int count = qBound(1, QThread::idealThreadCount(), fBounds.width());
    const auto fill = [this, pixels, stride, count](int part) { // a band of columns, which no other thread touches
        const int from = int(qint64(fBounds.width()) * part / count);
        const int to = int(qint64(fBounds.width()) * (part + 1) / count);
        fillBand(pixels, stride, from, to);
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
