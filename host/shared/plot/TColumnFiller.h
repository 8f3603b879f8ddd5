#pragma once

#include <QColor>
#include <QPointF>
#include <QRect>
#include <QVector>

class QPainter;

/// Draws curves that are functions of x onto pixels.
///
/// What a round pen covers of such a curve is, at each x, one span: from the lowest to the highest point within half a
/// pen on either side, the pen's roundness added. So every pixel column is a few spans with soft ends, whatever the
/// number of points, where a general stroker needs time that grows with the crossings of its outline. Columns are
/// worked out four to a pixel.
class TColumnFiller
{
public:
    static constexpr int cParts = 4; // columns per pixel

    /// `clip` in device pixels; nothing is drawn outside it. `penWidth` in pixels.
    TColumnFiller(const QRect &clip, double penWidth);

    void setAntialiasing(bool on) { fSoft = on; }
    /// The line through these points, in device pixels with x in either order.
    void addLine(const QVector<QPointF> &points);
    /// The area between the line and a height.
    void addArea(const QVector<QPointF> &points, double base);
    /// Draws what was added last.
    void paint(QPainter &painter, const QColor &color);

    /// Premultiplied pixels; `stride` and `columnStride` in pixels, to the one below and the one to the right; `origin`
    /// the device place of the first one.
    struct TTarget
    {
        QRgb *pixels;
        qptrdiff stride;
        qptrdiff columnStride;
        QPoint origin;
    };
    /// Rows of a pixel column, counted from the clip's top, that nothing shows through any more.
    struct THidden
    {
        int from = 0;
        int to = 0;
        void join(int begin, int end);
    };
    /// Lays what was added last under the pixels of a target that holds the clip, so that what is drawn later lies
    /// below. `hidden` has an entry for each pixel column of the clip and is kept up to date.
    void blendUnder(const TTarget &target, const QColor &color, THidden *hidden) const;

private:
    /// From top to bottom in each column; empty where the top lies below.
    struct TSpans
    {
        QVector<float> tops;
        QVector<float> bottoms;
    };
    void takeSegment(const QPointF &p, const QPointF &q);
    void dilate();
    template <class TPlace, class TSet>
    void fillColumn(int x, const TPlace &place, qptrdiff stride, const TSet &set, THidden *hidden) const;
    static void makeShades(const QColor &color, QRgb *shades);
    void paintChunk(QPainter &painter, int from, int to, const QRgb *shades, QVector<QRgb> &buffer) const;

    QRect fClip;
    double fRadius;
    bool fSoft = true;
    int fFirst;      // first column: x of the left border in parts of a pixel, half a pen left of the clip
    TSpans fSpans;   // of the line itself, heights from the clip's top
    TSpans fStroked; // of the pen, of the clip's columns only
};
