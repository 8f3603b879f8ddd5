#include "ui/PlotSteps.h"

#include "canvas/TCanvasSpectrum.h"
#include "commands/TCmdPanSpectra.h"
#include "commands/TCmdZoomSpectra.h"
#include "commands/TCommandHistory.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/TBasePlot.h"
#include "plot/TBasePlotter.h"

namespace {

TBasePlot *plotOf(const TCanvasItemList &items)
{
    const auto *spectrum = items.isEmpty() ? nullptr : dynamic_cast<TCanvasSpectrum *>(items.first());
    return spectrum ? spectrum->activePlot() : nullptr;
}

/// The limits that an axis shows when places about `fixed` draw together by `factor`.
TRange grown(const TBasePlot &plot, TAxisDir dir, double fixed, double factor)
{
    const QRectF curves = plot.plotter()->getPlotCurvesRect();
    const double from = dir == horzDir ? curves.left() : curves.bottom();
    const double to = dir == horzDir ? curves.right() : curves.top();
    const auto value = [&](double place) {
        return plot.plotter()->canvas2Scale(dir, fixed + (place - fixed) * factor);
    };
    return TRange(value(from), value(to)).sorted();
}

} // namespace

namespace PlotSteps {

void zoomAbout(TCommandHistory &history, const TCanvasItemList &items, const QPointF &itemPos, double factor, int mask)
{
    const TBasePlot *plot = plotOf(items);
    if (!plot)
        return;
    QRectF rect;
    if (mask & horzDir) {
        const TRange full = plot->horzAxis().getFullScale().sorted();
        const TRange shown = grown(*plot, horzDir, itemPos.x(), factor);
        rect.setLeft(qMax(shown.a, full.a));
        rect.setRight(qMin(shown.b, full.b));
    }
    if (mask & vertDir) {
        const TRange shown = grown(*plot, vertDir, itemPos.y(), factor);
        rect.setTop(shown.a);
        rect.setBottom(shown.b);
    }
    if (rect.width() > 0.0 || rect.height() > 0.0)
        history.push(new TCmdZoomSpectra(items, rect, TCmdZoomSpectra::cBox));
}

void panBy(TCommandHistory &history, const TCanvasItemList &items, double shareX, double shareY)
{
    const TBasePlot *plot = plotOf(items);
    if (!plot)
        return;
    const QRectF curves = plot->plotter()->getPlotCurvesRect();
    // the view goes right when the curves go left
    history.push(new TCmdPanSpectra(items, -shareX * curves.width(), -shareY * curves.height()));
}

bool stepActive(TCanvasItemList &items, int places)
{
    TCanvasItem *item = items.isEmpty() ? nullptr : canvasItem(items.first());
    IStackedItemCtx *stack = item ? item->stackedContext() : nullptr;
    if (!stack)
        return false;
    const QVector<int> order = stack->visibleOrder();
    const int place = order.indexOf(stack->activeIndex());
    if (order.size() < 2 || place < 0)
        return false;
    stack->makeCurrent(order.at(qBound(0, place + places, order.size() - 1)));
    item->update();
    return true;
}

} // namespace PlotSteps
