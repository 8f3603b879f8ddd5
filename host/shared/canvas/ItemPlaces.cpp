#include "canvas/ItemPlaces.h"

#include "canvas/TCanvasSpectrum.h"
#include "canvas/TPage.h"
#include "plot/TBasePlot.h"
#include "plot/TBasePlotter.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <set>

const QByteArray cExpansionRole = QByteArrayLiteral("expansionOf");

namespace {

constexpr int cSampleWidth = 240; // pixels: enough to tell a line from paper
constexpr int cBlank = 250;       // grey from which on a pixel counts as paper
constexpr double cTieWidth = 2.0; // canvas units
const QColor cTieColor(0x80, 0x84, 0x8A);

int inkIn(const QImage &image, const QRect &area)
{
    int ink = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const uchar *line = image.constScanLine(y);
        for (int x = area.left(); x <= area.right(); ++x)
            ink += line[x] < cBlank;
    }
    return ink;
}

/// A value of the horizontal axis as a place on the page; false where it is not in view.
bool placeOnPage(const TCanvasSpectrum &item, double value, double &place)
{
    const TBasePlotter *plotter = item.activePlotter();
    const QRectF curves = plotter->getPlotCurvesRect();
    if (!plotter->scale2Canvas(horzDir, value, place) || place < curves.left() - 1.0 || place > curves.right() + 1.0)
        return false;
    place += item.rect().left();
    return true;
}

void drawTies(QPainter &painter, const TCanvasSpectrum &part, const TCanvasSpectrum &source)
{
    const QRectF from = source.activePlotter()->getPlotCurvesRect().translated(source.rect().topLeft());
    const QRectF to = part.activePlotter()->getPlotCurvesRect().translated(part.rect().topLeft());
    const bool isAbove = part.rect().center().y() <= source.rect().center().y();
    const double start = isAbove ? from.bottom() : from.top();
    const double end = isAbove ? to.bottom() : to.top();
    const TRange shown = part.activePlot()->horzAxis().getScale();
    const double ends[] = {to.left(), to.right()};
    const double values[] = {shown.a, shown.b}; // the left end of an axis comes first
    for (int i = 0; i < 2; ++i) {
        double place = 0.0;
        if (placeOnPage(source, values[i], place))
            painter.drawLine(QPointF(place, start), QPointF(ends[i], end));
    }
}

constexpr int cManyItems = 12; // beyond, the search takes too long

/// The sides of the area and of what stands in it, ascending.
QVector<double> sides(const QRectF &area, const QVector<QRectF> &taken, bool isHorizontal)
{
    std::set<double> found;
    const auto add = [&](const QRectF &rect) {
        const double low = isHorizontal ? area.left() : area.top();
        const double high = isHorizontal ? area.right() : area.bottom();
        found.insert(qBound(low, isHorizontal ? rect.left() : rect.top(), high));
        found.insert(qBound(low, isHorizontal ? rect.right() : rect.bottom(), high));
    };
    add(area);
    for (const QRectF &rect : taken)
        add(rect);
    QVector<double> sorted;
    for (const double side : found)
        sorted.append(side);
    return sorted;
}

} // namespace

QRectF largestFreeRect(const QRectF &area, const QVector<QRectF> &taken)
{
    if (taken.size() > cManyItems)
        return QRectF();
    const QVector<double> xs = sides(area, taken, true);
    const QVector<double> ys = sides(area, taken, false);
    QRectF best;
    for (int left = 0; left < xs.size(); ++left) {
        for (int right = xs.size() - 1; right > left; --right) {
            for (int top = 0; top < ys.size(); ++top) {
                for (int bottom = ys.size() - 1; bottom > top; --bottom) {
                    const QRectF rect(QPointF(xs[left], ys[top]), QPointF(xs[right], ys[bottom]));
                    if (rect.width() * rect.height() <= best.width() * best.height())
                        break; // lower ones are smaller still
                    const bool isFree = std::none_of(taken.begin(), taken.end(),
                                                     [&rect](const QRectF &other) { return rect.intersects(other); });
                    if (isFree)
                        best = rect;
                }
            }
        }
    }
    return best;
}

QRectF emptiestCorner(const TPage &page, const QRectF &part)
{
    const QSizeF paper = page.size();
    QImage sample(cSampleWidth, qMax(1, qRound(cSampleWidth * paper.height() / paper.width())),
                  QImage::Format_Grayscale8);
    sample.fill(Qt::white);
    page.render(&sample);
    const double scale = sample.width() / paper.width();
    const QRectF inMargins = QRectF(QPointF(0, 0), paper).marginsRemoved(page.margins());
    const QRectF room = part.isEmpty() ? inMargins : part & inMargins;
    const QSizeF size(cCornerShare * paper.width(), cCornerShare * paper.height());
    const QPointF corners[] = {QPointF(room.right() - size.width(), room.top()), room.topLeft(),
                               QPointF(room.right() - size.width(), room.bottom() - size.height()),
                               QPointF(room.left(), room.bottom() - size.height())};
    QRectF best;
    int least = -1;
    for (const QPointF &corner : corners) {
        const QRectF rect(corner, size);
        const QRect pixels(QRectF(rect.topLeft() * scale, rect.size() * scale).toRect() & sample.rect());
        const int ink = inkIn(sample, pixels);
        if (least < 0 || ink < least) {
            least = ink;
            best = rect;
        }
    }
    return best;
}

void drawExpansionTies(QPainter &painter, const TPage &page)
{
    painter.save();
    painter.setPen(QPen(cTieColor, cTieWidth));
    for (const TCanvasItem *item : page.items()) {
        const auto *part = dynamic_cast<const TCanvasSpectrum *>(item);
        if (!part || !part->activePlot())
            continue;
        for (const QUuid &id : part->links(cExpansionRole)) {
            for (const TCanvasItem *other : page.items()) {
                const auto *source = dynamic_cast<const TCanvasSpectrum *>(other);
                if (source && source->activePlot() && source->uniqueId() == id)
                    drawTies(painter, *part, *source);
            }
        }
    }
    painter.restore();
}
