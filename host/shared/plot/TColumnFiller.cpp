#include "plot/TColumnFiller.h"
#include <QImage>
#include <QPainter>
#include <cmath>
#include <limits>

namespace {

constexpr int cChunk = 32; // pixel columns that are handed to the painter at once
constexpr float cNone = std::numeric_limits<float>::max();

float within(float value, int low, int high)
{
    return std::max(float(low), std::min(value, float(high)));
}

} // namespace

// a pen wider than the picture covers it as well when it is held to that
TColumnFiller::TColumnFiller(const QRect &clip, double penWidth)
    : fClip(clip)
    , fRadius(std::min(std::max(0.5, penWidth / 2), std::max(0.5, double(clip.width()) + clip.height())))
{
    const int reach = int(std::ceil(fRadius)) + 1;
    fFirst = (clip.left() - reach) * cParts;
    fSpans.fill({cNone, -cNone}, std::max(0, clip.width() + 2 * reach) * cParts);
}

void TColumnFiller::take(int column, double y1, double y2)
{
    // heights far outside are held where the pen cannot be seen any more
    const double above = -2.0 * fRadius - 4.0;
    const double below = fClip.height() + 2.0 * fRadius + 4.0;
    TSpan &span = fSpans[column - fFirst];
    span.top = std::min(span.top, float(std::max(above, std::min(below, std::min(y1, y2) - fClip.top()))));
    span.bottom = std::max(span.bottom, float(std::max(above, std::min(below, std::max(y1, y2) - fClip.top()))));
}

void TColumnFiller::takeSegment(const QPointF &p, const QPointF &q)
{
    const bool rises = p.x() <= q.x();
    const double x1 = (rises ? p.x() : q.x()) * cParts;
    const double x2 = (rises ? q.x() : p.x()) * cParts;
    const double y1 = rises ? p.y() : q.y();
    const double y2 = rises ? q.y() : p.y();
    const int last = fFirst + fSpans.size() - 1;
    if (x2 < fFirst || x1 >= last + 1)
        return;
    const int from = std::max(fFirst, int(std::floor(std::max(x1, double(fFirst)))));
    const int to = std::min(last, int(std::floor(std::min(x2, double(last)))));
    if (x2 - x1 < 1e-9) {
        take(from, y1, y2);
        return;
    }
    const double slope = (y2 - y1) / (x2 - x1);
    double entry = y1 + slope * (std::max(x1, double(from)) - x1);
    for (int column = from; column <= to; ++column) {
        const double exit = column + 1 >= x2 ? y2 : y1 + slope * (column + 1 - x1);
        take(column, entry, exit);
        entry = exit;
    }
}

void TColumnFiller::addLine(const QVector<QPointF> &points)
{
    fSpans.fill({cNone, -cNone});
    if (points.size() == 1)
        takeSegment(points.first(), points.first());
    for (int i = 1; i < points.size(); ++i)
        takeSegment(points.at(i - 1), points.at(i));
    dilate();
}

/// The pen's span at a column is the union over the columns within its radius; as the curve is connected that is from
/// the highest top to the lowest bottom.
void TColumnFiller::dilate()
{
    const int reach = int(std::floor(fRadius * cParts - 0.5));
    QVector<float> rise(reach + 1);
    for (int d = 0; d <= reach; ++d) {
        // on a slope the point that reaches furthest into this column stands at the far border of the other one
        const double distance = d == 0 ? 0.0 : (d + 0.5) / cParts;
        rise[d] = float(std::sqrt(std::max(0.0, fRadius * fRadius - distance * distance)));
    }
    const float share = float(fRadius * cParts - 0.5) - reach; // of the next column that the pen still reaches
    const int before = fClip.left() * cParts - fFirst;
    fStroked.resize(fClip.width() * cParts);
    for (int i = 0; i < fStroked.size(); ++i) {
        const TSpan *centre = fSpans.constData() + before + i;
        float top = cNone;
        float bottom = -cNone;
        for (int d = -reach; d <= reach; ++d) {
            const float roundness = rise.at(std::abs(d));
            if (centre[d].isEmpty())
                continue;
            top = std::min(top, centre[d].top - roundness);
            bottom = std::max(bottom, centre[d].bottom + roundness);
        }
        for (const int side : {-1, 1}) {
            const TSpan &outer = centre[side * (reach + 1)];
            const TSpan &inner = centre[side * reach];
            if (outer.isEmpty() || inner.isEmpty())
                continue;
            const float part = share * (outer.bottom - outer.top);
            if (outer.top + outer.bottom < inner.top + inner.bottom) // the line goes up from here
                top = std::min(top, outer.bottom - part);
            else
                bottom = std::max(bottom, outer.top + part);
        }
        fStroked[i] = {top, bottom};
    }
}

void TColumnFiller::addArea(const QVector<QPointF> &points, double base)
{
    fSpans.fill({cNone, -cNone});
    for (int i = 1; i < points.size(); ++i)
        takeSegment(points.at(i - 1), points.at(i));
    const float height = float(base - fClip.top());
    const int before = fClip.left() * cParts - fFirst;
    fStroked.resize(fClip.width() * cParts);
    for (int i = 0; i < fStroked.size(); ++i) {
        const TSpan &span = fSpans.at(before + i);
        if (span.isEmpty()) {
            fStroked[i] = span;
            continue;
        }
        // the middle of the column's part of the line, or steep lines would widen the area
        const float middle = (span.top + span.bottom) / 2;
        fStroked[i] = {std::min(middle, height), std::max(middle, height)};
    }
}

float TColumnFiller::coverage(const TSpan *parts, int row) const
{
    float sum = 0.0f;
    for (int k = 0; k < cParts; ++k)
        sum += std::max(0.0f, std::min(parts[k].bottom, float(row + 1)) - std::max(parts[k].top, float(row)));
    return sum / cParts;
}

void TColumnFiller::paint(QPainter &painter, const QColor &color)
{
    const QRgb full = color.rgba();
    QVector<QRgb> shades(256);
    for (int i = 0; i < 256; ++i)
        shades[i] = qPremultiply(qRgba(qRed(full), qGreen(full), qBlue(full), (qAlpha(full) * i + 127) / 255));
    // device pixels are addressed directly; an image is then laid on them one to one
    painter.save();
    painter.resetTransform();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    for (int from = 0; from < fClip.width(); from += cChunk)
        paintChunk(painter, from, std::min(from + cChunk, fClip.width()), shades);
    painter.restore();
}

void TColumnFiller::paintChunk(QPainter &painter, int from, int to, const QVector<QRgb> &shades)
{
    float highest = cNone;
    float lowest = -cNone;
    for (int i = from * cParts; i < to * cParts; ++i) {
        highest = std::min(highest, fStroked.at(i).top);
        lowest = std::max(lowest, fStroked.at(i).bottom);
    }
    const int top = int(std::floor(within(highest, 0, fClip.height())));
    const int bottom = int(std::ceil(within(lowest, 0, fClip.height())));
    if (top >= bottom)
        return;
    const int width = to - from;
    fPixels.fill(0, width * (bottom - top));
    for (int x = 0; x < width; ++x) {
        const TSpan *parts = fStroked.constData() + (from + x) * cParts;
        float first = cNone;
        float last = -cNone;
        float solidFrom = -cNone; // rows that every part covers whole
        float solidTo = cNone;
        for (int k = 0; k < cParts; ++k) {
            first = std::min(first, parts[k].top);
            last = std::max(last, parts[k].bottom);
            solidFrom = std::max(solidFrom, parts[k].top);
            solidTo = std::min(solidTo, parts[k].bottom);
        }
        if (!(first <= last)) // a gap of the curve
            continue;
        const int begin = int(std::floor(within(first, top, bottom)));
        const int end = int(std::ceil(within(last, begin, bottom)));
        const int solidBegin = int(std::ceil(within(solidFrom, begin, end)));
        const int solidEnd = int(std::floor(within(solidTo, solidBegin, end)));
        QRgb *pixel = fPixels.data() + (begin - top) * width + x;
        for (int row = begin; row < end; ++row, pixel += width) {
            if (row >= solidBegin && row < solidEnd) {
                *pixel = shades.at(255);
                continue;
            }
            const float share = coverage(parts, row);
            *pixel = shades.at(fSoft ? std::min(255, int(share * 255.0f + 0.5f)) : (share >= 0.5f ? 255 : 0));
        }
    }
    QImage image(reinterpret_cast<const uchar *>(fPixels.constData()), width, bottom - top, width * int(sizeof(QRgb)),
                 QImage::Format_ARGB32_Premultiplied);
    const QTransform device = painter.deviceTransform();
    image.setDevicePixelRatio(device.m11());
    painter.drawImage(device.inverted().map(QPointF(fClip.left() + from, fClip.top() + top)), image);
}
