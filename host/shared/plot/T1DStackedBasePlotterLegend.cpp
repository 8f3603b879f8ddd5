#include "plot/ColorUtils.h"
#include "plot/PainterUtils.h"
#include "plot/T1DStackedBasePlotter.h"
#include "plot/T1DStackedPlot.h"
#include "plot/TTypesetter.h"
#include <QPainter>
#include <cmath>

// The legend of T1DStackedBasePlotter and its notices: text that stands inside the curves rectangle.

namespace {

constexpr int cMostEntries = 12;
constexpr double cInset = 12.0;     // between the legend and the border of the curves
constexpr double cPadding = 10.0;   // of the paper behind it
constexpr double cSample = 64.0;    // length of a line sample
constexpr double cSampleGap = 14.0; // between sample and title
constexpr double cMostWidth = 0.42; // of the curves
constexpr double cBarWidth = 220.0; // of the bar of colours
constexpr double cBarHeight = 18.0;
constexpr int cMostPoints = 100000;  // that are looked at to find the emptiest corner
constexpr int cObstacleWeight = 200; // points that a mark counts for

QFont bold(const QFont &font)
{
    QFont result(font);
    result.setBold(true);
    return result;
}

/// The four places of a legend, the usual one first.
QVector<QRectF> corners(const QRectF &area, const QSizeF &size)
{
    const QRectF inner = area.adjusted(cInset, cInset, -cInset, -cInset);
    QRectF rect(QPointF(), size);
    QVector<QRectF> places;
    rect.moveTopRight(inner.topRight());
    places.append(rect);
    rect.moveTopLeft(inner.topLeft());
    places.append(rect);
    rect.moveBottomRight(inner.bottomRight());
    places.append(rect);
    rect.moveBottomLeft(inner.bottomLeft());
    places.append(rect);
    return places;
}

} // namespace

/// Points of the curves in each place are counted; marks count more.
QRectF T1DStackedBasePlotter::emptiestPlace(const QVector<QRectF> &places, const TSeries &xs, const TSeries &ys,
                                            const QVector<QRectF> &obstacles) const
{
    QVector<double> load(places.size(), 0.0);
    const int curves = std::min(xs.size(), ys.size());
    qint64 points = 0;
    for (int i = 0; i < curves; ++i)
        points += std::min(xs.at(i).count, ys.at(i).count);
    const int stride = int(std::max<qint64>(1, points / cMostPoints));
    for (int i = 0; i < curves; ++i) {
        for (int k = 0; k < std::min(xs.at(i).count, ys.at(i).count); k += stride) {
            const QPointF pos = scale2Canvas(QPointF(xs.at(i).at(k), ys.at(i).at(k)));
            if (!std::isfinite(pos.x()) || !std::isfinite(pos.y()))
                continue; // hidden
            for (int place = 0; place < places.size(); ++place) {
                if (places.at(place).contains(pos))
                    load[place] += 1.0;
            }
        }
    }
    for (const QRectF &obstacle : obstacles) {
        for (int place = 0; place < places.size(); ++place) {
            if (places.at(place).intersects(obstacle))
                load[place] += cObstacleWeight;
        }
    }
    return places.at(int(std::min_element(load.cbegin(), load.cend()) - load.cbegin()));
}

void T1DStackedBasePlotter::drawLegend(QPainter &painter, const TSeries &xs, const TSeries &ys,
                                       const QStringList &texts, const QVector<int> &orders, int active,
                                       const QVector<QRectF> &obstacles) const
{
    const int count = std::min(texts.size(), orders.size());
    const QRectF area = adjustedPlotArea();
    const QFont font = Utils::Painter::fontSizeInPixels(properties().axesFont);
    const TTypesetter plain(font);
    const TTypesetter heavy(bold(font));
    if (count == 0 || area.isEmpty())
        return;
    const bool isBar = count > cMostEntries;
    QStringList lines;
    double widest = 0.0;
    for (int i = 0; i < (isBar ? 1 : count); ++i) {
        const TTypesetter &typesetter = orders.at(i) == active && !isBar ? heavy : plain;
        const QString text = isBar ? QStringLiteral("1 .. %1").arg(count) : texts.at(i);
        lines.append(typesetter.wrapped(text, cMostWidth * area.width(), 1).value(0));
        widest = std::max(widest, typesetter.width(lines.last()));
    }
    const double sample = isBar ? cBarWidth : cSample;
    const QSizeF size(2.0 * cPadding + sample + cSampleGap + widest, 2.0 * cPadding + lines.size() * plain.height());
    const QRectF place = emptiestPlace(corners(area, size), xs, ys, obstacles);
    painter.save();
    painter.fillRect(place, textPaper());
    for (int i = 0; i < lines.size(); ++i) {
        const QRectF line(place.left() + cPadding, place.top() + cPadding + i * plain.height(), sample, plain.height());
        if (isBar) {
            drawColorBar(painter, QRectF(line.left(), line.center().y() - cBarHeight / 2, sample, cBarHeight), orders);
        } else {
            QPen pen =
                arrayedPen(orders.at(i), orders.at(i) == active ? stackedProperties().activePenWidthFactor() : 1.0);
            pen.setColor(ink(pen.color()));
            pen.setCapStyle(Qt::FlatCap);
            painter.setPen(pen);
            painter.drawLine(QPointF(line.left(), line.center().y()), QPointF(line.right(), line.center().y()));
        }
        painter.setPen(ink(properties().axesColor));
        (orders.at(i) == active && !isBar ? heavy : plain)
            .draw(painter, QRectF(line.right() + cSampleGap, line.top(), widest, line.height()), Qt::AlignLeft,
                  lines.at(i));
    }
    painter.restore();
}

void T1DStackedBasePlotter::drawColorBar(QPainter &painter, const QRectF &rect, const QVector<int> &orders) const
{
    const double cell = rect.width() / orders.size();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false); // cells touch without seams
    for (int i = 0; i < orders.size(); ++i) {
        const double right = i + 1 == orders.size() ? rect.right() : rect.left() + (i + 1) * cell;
        painter.fillRect(QRectF(QPointF(rect.left() + i * cell, rect.top()), QPointF(right, rect.bottom())),
                         ink(arrayedPen(orders.at(i), 1.0).color()));
    }
    painter.restore();
}

void T1DStackedBasePlotter::drawNotice(QPainter &painter, const QString &text) const
{
    const TTypesetter typesetter(Utils::Painter::fontSizeInPixels(properties().axesFont));
    const QRectF area = adjustedPlotArea();
    const double width = typesetter.width(text);
    const QRectF rect(area.right() - cInset - width, area.top(), width, typesetter.height());
    painter.save();
    painter.fillRect(rect.adjusted(-cPadding, 0.0, cPadding, 0.0), textPaper());
    painter.setPen(ink(properties().axesColor));
    typesetter.draw(painter, rect, Qt::AlignLeft, text);
    painter.restore();
}
