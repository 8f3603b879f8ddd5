#include "ui/PlotSteps.h"

#include "canvas/TCanvasSpectrum.h"
#include "commands/TCmdPlotProperties.h"
#include "commands/TCmdZoomSpectra.h"
#include "commands/TCommandHistory.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/T1DStackedPlot.h"
#include "plot/TBasePlotter.h"
#include "properties/TPropertiesBag.h"

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
    history.push(canvasItem(items.first())->panCommand(items, -shareX * curves.width(), -shareY * curves.height()));
}

bool stepActive(TCommandHistory &history, const TCanvasItemList &items, int places)
{
    TCanvasItem *item = items.isEmpty() ? nullptr : canvasItem(items.first());
    const IStackedItemCtx *stack = item ? item->stackedContext() : nullptr;
    if (!stack)
        return false;
    const QVector<int> order = stack->visibleOrder();
    const int place = order.indexOf(stack->activeIndex());
    if (order.size() < 2 || place < 0)
        return false;
    const int next = order.at(qBound(0, place + places, order.size() - 1));
    history.push(item->activeSpectrumCommand(TCanvasItemList{item}, next));
    return true;
}

bool setProperties(TCommandHistory &history, const TCanvasItemList &items, const QVariantMap &fields)
{
    TCanvasItem *item = items.isEmpty() ? nullptr : canvasItem(items.first());
    if (!item)
        return false;
    bool changed = false;
    for (const std::unique_ptr<TPropertiesBag> &kind : item->properties().bags()) {
        const std::unique_ptr<TPropertiesBag> known = kind->create();
        known->fillFrom(*item);
        std::unique_ptr<TPropertiesBag> bag = kind->create(); // holds these fields only, so the others stay
        for (auto it = fields.constBegin(); it != fields.constEnd(); ++it) {
            if (known->value(it.key()).isValid())
                bag->setValue(it.key(), it.value());
        }
        if (!bag->isEmpty())
            changed = history.push(new TCmdPlotProperties(items, std::move(bag))) || changed;
    }
    return changed;
}

bool changeSpacing(TCommandHistory &history, const TCanvasItemList &items, double factor)
{
    const auto *plot = dynamic_cast<const T1DStackedPlot *>(plotOf(items));
    if (!plot || !plot->hasRows())
        return false;
    using TStack = T1DStackedPlotProperties;
    const double spacing =
        qBound(TStack::cMinSpacing, plot->stackedProperties().spacing() * factor, TStack::cMaxSpacing);
    return setProperties(history, items, {{QStringLiteral("stack.spacing"), spacing}});
}

} // namespace PlotSteps
