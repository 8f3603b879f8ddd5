#include "TYrexTitleDrag.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "commands/TCmdStackedItemsArrange.h"
#include "plot/ColorUtils.h"
#include "ui/IPlotView.h"

#include <QPainter>

namespace {

constexpr double cMarkWidth = 3.0; // pixels

} // namespace

TYrexTitleDrag::TYrexTitleDrag(TCanvasYrexSpectrum *item, int spectrum)
    : fItem(item)
    , fSpectrum(spectrum)
{
}

QVector<int> TYrexTitleDrag::order() const
{
    return fItem ? fItem->stackedContext()->visibleOrder() : QVector<int>();
}

void TYrexTitleDrag::moveTo(const QPointF &itemPos, double, Qt::KeyboardModifiers)
{
    const T1DYrexPlot *plot = fItem ? fItem->activeYrexPlot() : nullptr;
    if (!plot)
        return;
    const bool isQueued = plot->isQueued(); // columns
    const QMap<int, QRectF> rects = plot->stackedLabelRects();
    const QRectF curves = plot->plotter()->getPlotCurvesRect();
    const auto along = [isQueued](const QPointF &point) { return isQueued ? point.x() : point.y(); };
    const double mouse = along(itemPos);
    const QVector<int> rows = order();
    double nearest = -1.0;
    for (int i = 0; i < rows.size(); ++i) {
        if (!rects.contains(rows.at(i)))
            continue;
        const QRectF rect = rects.value(rows.at(i));
        const double away = qAbs(along(rect.center()) - mouse);
        if (nearest >= 0.0 && away >= nearest)
            continue;
        nearest = away;
        // which side of the row the next ones lie on tells what "before" means
        const QRectF next = rects.value(rows.value(i + 1, -1));
        const QRectF former = rects.value(rows.value(i - 1, -1));
        const bool runsUp = !next.isNull() ? along(next.center()) > along(rect.center())
                                           : former.isNull() || along(former.center()) < along(rect.center());
        const bool isBeyond = (mouse > along(rect.center())) == runsUp;
        fGap = i + (isBeyond ? 1 : 0);
        const bool atEnd = mouse > along(rect.center());
        if (isQueued)
            fMark = QLineF(atEnd ? rect.right() : rect.left(), curves.top(), atEnd ? rect.right() : rect.left(),
                           curves.bottom());
        else
            fMark = QLineF(curves.left(), atEnd ? rect.bottom() : rect.top(), curves.right(),
                           atEnd ? rect.bottom() : rect.top());
    }
}

void TYrexTitleDrag::paint(QPainter &painter, const IPlotView &view) const
{
    if (!fItem || fGap < 0)
        return;
    painter.save();
    painter.setPen(QPen(Utils::Color::cSelectionColors.first(), cMarkWidth));
    painter.drawLine(view.itemToView(*fItem.get()).map(fMark));
    painter.restore();
}

TCommand *TYrexTitleDrag::finish()
{
    QVector<int> rows = order();
    const int from = rows.indexOf(fSpectrum);
    if (from < 0 || fGap < 0)
        return nullptr;
    const int to = fGap > from ? fGap - 1 : fGap;
    if (to == from)
        return nullptr;
    rows.move(from, qBound(0, to, rows.size() - 1));
    return new TCmdStackedItemsArrange(TCanvasItemList{fItem.get()}, rows);
}
