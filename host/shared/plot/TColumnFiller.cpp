#include "plot/TColumnFiller.h"
#include <QImage>
#include <QPainter>
#include <cmath>
#include <limits>

namespace {

constexpr int cBlock = 512; // columns that are widened by the pen together, so that they stay in the nearest cache
constexpr int cChunk = 16;  // pixel columns that are handed to the painter at once
constexpr float cNone = std::numeric_limits<float>::max();

float within(float value, int low, int high)
{
    return std::max(float(low), std::min(value, float(high)));
}

/// Of heights that are not negative; the library's floor and ceil take several times as long.
int floored(float value)
{
    return int(value);
}

/// Of any value that an int holds.
int floored(double value)
{
    const int whole = int(value);
    return whole - (double(whole) > value ? 1 : 0);
}

int ceiled(float value)
{
    const int whole = int(value);
    return whole + (float(whole) < value ? 1 : 0);
}

/// The share of a row that the parts of a pixel column cover.
inline float coverage(const float *tops, const float *bottoms, int row)
{
    float sum = 0.0f;
    for (int k = 0; k < TColumnFiller::cParts; ++k)
        sum += std::max(0.0f, std::min(bottoms[k], float(row + 1)) - std::max(tops[k], float(row)));
    return sum / TColumnFiller::cParts;
}

} // namespace

// a pen wider than the picture covers it as well when it is held to that
TColumnFiller::TColumnFiller(const QRect &clip, double penWidth)
    : fClip(clip)
    , fRadius(std::min(std::max(0.5, penWidth / 2), std::max(0.5, double(clip.width()) + clip.height())))
{
    const int reach = int(std::ceil(fRadius)) + 1;
    fFirst = (clip.left() - reach) * cParts;
    const int count = std::max(0, clip.width() + 2 * reach) * cParts;
    fSpans.tops.fill(cNone, count);
    fSpans.bottoms.fill(-cNone, count);
}

void TColumnFiller::takeSegment(const QPointF &p, const QPointF &q)
{
    const bool rises = p.x() <= q.x();
    const double x1 = (rises ? p.x() : q.x()) * cParts;
    const double x2 = (rises ? q.x() : p.x()) * cParts;
    const double y1 = (rises ? p.y() : q.y()) - fClip.top();
    const double y2 = (rises ? q.y() : p.y()) - fClip.top();
    const int last = fFirst + fSpans.tops.size() - 1;
    if (x2 < fFirst || x1 >= last + 1)
        return;
    const int from = std::max(fFirst, floored(std::max(x1, double(fFirst))));
    const int to = std::min(last, floored(std::min(x2, double(last))));
    // heights far outside are held where the pen cannot be seen any more
    const double above = -2.0 * fRadius - 4.0;
    const double below = fClip.height() + 2.0 * fRadius + 4.0;
    const auto held = [above, below](double y) { return float(std::max(above, std::min(below, y))); };
    float *tops = fSpans.tops.data() - fFirst;
    float *bottoms = fSpans.bottoms.data() - fFirst;
    const auto take = [tops, bottoms](int column, float entry, float exit) {
        tops[column] = std::min(tops[column], std::min(entry, exit));
        bottoms[column] = std::max(bottoms[column], std::max(entry, exit));
    };
    if (x2 - x1 < 1e-9) {
        take(from, held(y1), held(y2));
        return;
    }
    const double slope = (y2 - y1) / (x2 - x1);
    float entry = held(y1 + slope * (std::max(x1, double(from)) - x1));
    for (int column = from; column < to; ++column) {
        const float exit = held(y1 + slope * (column + 1 - x1));
        take(column, entry, exit);
        entry = exit;
    }
    take(to, entry, held(to + 1 >= x2 ? y2 : y1 + slope * (to + 1 - x1)));
}

void TColumnFiller::addLine(const QVector<QPointF> &points)
{
    fSpans.tops.fill(cNone);
    fSpans.bottoms.fill(-cNone);
    if (points.size() == 1)
        takeSegment(points.first(), points.first());
    for (int i = 1; i < points.size(); ++i)
        takeSegment(points.at(i - 1), points.at(i));
    dilate();
}

/// The pen's span at a column is the union over the columns within its radius; as the curve is connected that is from
/// the highest top to the lowest bottom. An empty span is never the highest or lowest, so none is asked for, and the
/// loops run over several columns at once.
void TColumnFiller::dilate()
{
    const int reach = int(std::floor(fRadius * cParts - 0.5));
    const float share = float(fRadius * cParts - 0.5) - float(reach); // of the next column that the pen still reaches
    const int before = fClip.left() * cParts - fFirst;
    const int count = fClip.width() * cParts;
    fStroked.tops.fill(cNone, count);
    fStroked.bottoms.fill(-cNone, count);
    float *tops = fStroked.tops.data();
    float *bottoms = fStroked.bottoms.data();
    for (int from = 0; from < count; from += cBlock) {
        const int end = std::min(count, from + cBlock);
        for (int d = -reach; d <= reach; ++d) {
            // on a slope the point that reaches furthest into this column stands at the far border of the other one
            const double distance = d == 0 ? 0.0 : (std::abs(d) + 0.5) / cParts;
            const float rise = float(std::sqrt(std::max(0.0, fRadius * fRadius - distance * distance)));
            const float *top = fSpans.tops.constData() + before + d;
            const float *bottom = fSpans.bottoms.constData() + before + d;
            for (int i = from; i < end; ++i) {
                tops[i] = std::min(tops[i], top[i] - rise);
                bottoms[i] = std::max(bottoms[i], bottom[i] + rise);
            }
        }
    }
    for (const int side : {-1, 1}) {
        const float *top = fSpans.tops.constData() + before + side * (reach + 1);
        const float *bottom = fSpans.bottoms.constData() + before + side * (reach + 1);
        const float *innerTop = fSpans.tops.constData() + before + side * reach;
        const float *innerBottom = fSpans.bottoms.constData() + before + side * reach;
        for (int i = 0; i < count; ++i) {
            const bool isThere = top[i] <= bottom[i] && innerTop[i] <= innerBottom[i];
            const bool goesUp = top[i] + bottom[i] < innerTop[i] + innerBottom[i]; // the line, from here
            const float part = share * (bottom[i] - top[i]);
            tops[i] = isThere && goesUp ? std::min(tops[i], bottom[i] - part) : tops[i];
            bottoms[i] = isThere && !goesUp ? std::max(bottoms[i], top[i] + part) : bottoms[i];
        }
    }
}

void TColumnFiller::addArea(const QVector<QPointF> &points, double base)
{
    fSpans.tops.fill(cNone);
    fSpans.bottoms.fill(-cNone);
    for (int i = 1; i < points.size(); ++i)
        takeSegment(points.at(i - 1), points.at(i));
    const float height = float(base - fClip.top());
    const int before = fClip.left() * cParts - fFirst;
    const int count = fClip.width() * cParts;
    fStroked.tops.resize(count);
    fStroked.bottoms.resize(count);
    for (int i = 0; i < count; ++i) {
        const float top = fSpans.tops.at(before + i);
        const float bottom = fSpans.bottoms.at(before + i);
        // the middle of the column's part of the line, or steep lines would widen the area
        const float middle = (top + bottom) / 2;
        fStroked.tops[i] = top <= bottom ? std::min(middle, height) : cNone;
        fStroked.bottoms[i] = top <= bottom ? std::max(middle, height) : -cNone;
    }
}

/// Calls `set` with each pixel of a column that the pen covers and how far, 1 to 255. `place` gives the address of a
/// pixel by column and row, `stride` the way to the row below.
template <class TPlace, class TSet>
void TColumnFiller::fillColumn(int x, const TPlace &place, qptrdiff stride, const TSet &set, THidden *hidden) const
{
    const float *tops = fStroked.tops.constData() + x * cParts;
    const float *bottoms = fStroked.bottoms.constData() + x * cParts;
    float first = cNone;
    float last = -cNone;
    float solidFrom = -cNone; // rows that every part covers whole
    float solidTo = cNone;
    for (int k = 0; k < cParts; ++k) {
        first = std::min(first, tops[k]);
        last = std::max(last, bottoms[k]);
        solidFrom = std::max(solidFrom, tops[k]);
        solidTo = std::min(solidTo, bottoms[k]);
    }
    if (!(first <= last)) // a gap of the curve
        return;
    const int height = fClip.height();
    const int begin = floored(within(first, 0, height));
    const int end = ceiled(within(last, begin, height));
    const int solidBegin = ceiled(within(solidFrom, begin, end));
    const int solidEnd = floored(within(solidTo, solidBegin, end));
    const auto soften = [&](int from, int to) {
        QRgb *pixel = place(x, from);
        for (int row = from; row < to; ++row, pixel += stride) {
            const float share = coverage(tops, bottoms, row);
            const int level = fSoft ? std::min(255, floored(share * 255.0f + 0.5f)) : (share >= 0.5f ? 255 : 0);
            if (level > 0)
                set(*pixel, level);
        }
    };
    const auto fill = [&](int from, int to) {
        soften(from, std::min(to, solidBegin));
        const int behind = std::min(to, solidEnd);
        QRgb *pixel = place(x, std::max(from, solidBegin));
        for (int row = std::max(from, solidBegin); row < behind; ++row, pixel += stride)
            set(*pixel, 255);
        soften(std::max(from, solidEnd), to);
    };
    if (!hidden) {
        fill(begin, end);
        return;
    }
    fill(begin, std::min(end, std::max(begin, hidden->from)));
    fill(std::max(begin, std::min(end, hidden->to)), end);
    hidden->join(solidBegin, solidEnd);
}

/// Rows that meet become one piece; of two pieces apart the longer one is kept.
void TColumnFiller::THidden::join(int begin, int end)
{
    if (begin <= to && end >= from && to > from) {
        from = std::min(from, begin);
        to = std::max(to, end);
    } else if (end - begin > to - from) {
        from = begin;
        to = end;
    }
}

void TColumnFiller::makeShades(const QColor &color, QRgb *shades)
{
    const QRgb full = color.rgba();
    for (int i = 0; i < 256; ++i)
        shades[i] = qPremultiply(qRgba(qRed(full), qGreen(full), qBlue(full), (qAlpha(full) * i + 127) / 255));
}

void TColumnFiller::blendUnder(const TTarget &target, const QColor &color, THidden *hidden) const
{
    QRgb shades[256];
    makeShades(color, shades);
    QRgb *corner = target.pixels + (fClip.top() - target.origin.y()) * target.stride +
                   (fClip.left() - target.origin.x()) * target.columnStride;
    const auto place = [corner, &target](int x, int row) {
        return corner + row * target.stride + x * target.columnStride;
    };
    const auto under = [&shades](QRgb &pixel, int share) {
        const uint rest = 255u - uint(qAlpha(pixel));
        if (rest == 0)
            return;
        const QRgb source = shades[share];
        if (rest == 255) {
            pixel = source;
            return;
        }
        // two channels at a time, each rounded
        uint odd = (source >> 8 & 0xFF00FFu) * rest;
        uint even = (source & 0xFF00FFu) * rest;
        odd = (odd + (odd >> 8 & 0xFF00FFu) + 0x800080u) & 0xFF00FF00u;
        even = (even + (even >> 8 & 0xFF00FFu) + 0x800080u) >> 8 & 0xFF00FFu;
        pixel += odd | even;
    };
    const bool covers = color.alpha() == 255;
    for (int x = 0; x < fClip.width(); ++x)
        fillColumn(x, place, target.stride, under, covers ? hidden + x : nullptr);
}

void TColumnFiller::paint(QPainter &painter, const QColor &color)
{
    QRgb shades[256];
    makeShades(color, shades);
    static thread_local QVector<QRgb> tBuffer; // a large one would be fetched from the system for every curve
    // device pixels are addressed directly; an image is then laid on them one to one
    painter.save();
    painter.resetTransform();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    for (int from = 0; from < fClip.width(); from += cChunk)
        paintChunk(painter, from, std::min(from + cChunk, fClip.width()), shades, tBuffer);
    painter.restore();
}

void TColumnFiller::paintChunk(QPainter &painter, int from, int to, const QRgb *shades, QVector<QRgb> &buffer) const
{
    const float *allTops = fStroked.tops.constData();
    const float *allBottoms = fStroked.bottoms.constData();
    float highest = cNone;
    float lowest = -cNone;
    for (int i = from * cParts; i < to * cParts; ++i) {
        highest = std::min(highest, allTops[i]);
        lowest = std::max(lowest, allBottoms[i]);
    }
    const int top = floored(within(highest, 0, fClip.height()));
    const int bottom = ceiled(within(lowest, 0, fClip.height()));
    if (top >= bottom)
        return;
    const int width = to - from;
    const int size = width * (bottom - top);
    if (buffer.size() < size)
        buffer.resize(size);
    QRgb *pixels = buffer.data();
    std::fill(pixels, pixels + size, 0u);
    const auto put = [pixels, width, from, top](int x, int row) { return pixels + (row - top) * width + x - from; };
    for (int x = from; x < to; ++x)
        fillColumn(
            x, put, width, [shades](QRgb &pixel, int share) { pixel = shades[share]; }, nullptr);
    QImage image(reinterpret_cast<const uchar *>(pixels), width, bottom - top, width * int(sizeof(QRgb)),
                 QImage::Format_ARGB32_Premultiplied);
    const QTransform device = painter.deviceTransform();
    image.setDevicePixelRatio(device.m11());
    painter.drawImage(device.inverted().map(QPointF(fClip.left() + from, fClip.top() + top)), image);
}
