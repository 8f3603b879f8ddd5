#include "commands/TCmdZoomSpectra.h"

#include "canvas/TCanvasSpectrum.h"
#include "contexts/TSpectrumItemCtx.h"
#include "history/THistoryCommand.h"
#include "plot/TBasePlot.h"

namespace {

void tell(TScriptStep &step, const TCmdZoomSpectra::TBox &box)
{
    if (box.fX.span() > 0.0)
        step.with("from", box.fX.a).with("to", box.fX.b);
    if (box.fY.span() > 0.0)
        step.with("lower", box.fY.a).with("upper", box.fY.b);
}

QVariantMap told(const TCmdZoomSpectra::TBox &box)
{
    TScriptStep step;
    tell(step, box);
    QVariantMap map;
    for (const TScriptStep::TArgument &argument : step.arguments())
        map.insert(argument.first, argument.second);
    return map;
}

TScriptStep stepFor(const TCanvasItemList &items, const QVector<TCmdZoomSpectra::TBox> &boxes)
{
    QVariantList views;
    for (int i = 0; i < items.size(); ++i)
        views.append(told(boxes.value(i)));
    return TScriptStep("zoomEach").on(items).with("views", views);
}

} // namespace

TCmdZoomSpectra::TCmdZoomSpectra(const TCanvasItemList &items, const QRectF &rect, int flag)
    : TViewCommand(flag & cFullView ? tr("Full View") : tr("Zoom"), items)
    , fBoxes({{TRange(rect.left(), rect.right()).sorted(), TRange(rect.top(), rect.bottom()).sorted()}})
    , fFullView(flag & cFullView)
{
    setMergeableFlag(true);
}

TCmdZoomSpectra::TCmdZoomSpectra(const TCanvasItemList &items, const TRange &x, const TRange &y)
    : TViewCommand(tr("Zoom"), items)
    , fBoxes({{x.sorted(), y.sorted()}})
{
    setMergeableFlag(true);
}

TCmdZoomSpectra::TCmdZoomSpectra(const TCanvasItemList &items, const QVector<TBox> &boxes)
    : TViewCommand(tr("Zoom"), items)
    , fIsForEach(true)
{
    setMergeableFlag(true);
    for (const TBox &box : boxes)
        fBoxes.append({box.fX.sorted(), box.fY.sorted()});
}

TCmdZoomSpectra::TBox TCmdZoomSpectra::boxOf(const TCanvasSpectrum &item) const
{
    return fIsForEach ? fBoxes.value(items().indexOf(const_cast<TCanvasSpectrum *>(&item))) : fBoxes.first();
}

void TCmdZoomSpectra::changeView(TCanvasSpectrum &item, TBasePlot &activePlot)
{
    TSpectrumItemCtx context(&item, &activePlot);
    const TBox box = boxOf(item);
    const bool isAny = box.fX.span() > 0.0 || box.fY.span() > 0.0;
    if (fFullView || (!isAny && !fIsForEach)) {
        context.fullZoomOut();
        return;
    }
    if (box.fX.span() > 0.0)
        context.zoom(horzDir, box.fX.a, box.fX.b);
    if (box.fY.span() > 0.0) // behind the fit to the height that goes with the other axis
        context.zoom(vertDir, box.fY.a, box.fY.b);
}

void TCmdZoomSpectra::describe(THistoryCommand &entry) const
{
    if (fFullView || fIsForEach)
        return;
    const TBox &box = fBoxes.first();
    if (box.fX.span() > 0.0)
        entry.addParam("Horizontal", QVariantList({box.fX.a, box.fX.b}), QString());
    if (box.fY.span() > 0.0)
        entry.addParam("Vertical", QVariantList({box.fY.a, box.fY.b}), QString());
}

TScriptStep TCmdZoomSpectra::scriptStep() const
{
    if (fIsForEach)
        return stepFor(items(), fBoxes);
    const TBox &box = fBoxes.first();
    if (fFullView || !(box.fX.span() > 0.0 || box.fY.span() > 0.0))
        return TScriptStep("fullView").on(items());
    TScriptStep step("zoomTo");
    tell(step.on(items()), box);
    return step;
}

TScriptStep TCmdZoomSpectra::stepTo(const TCanvasItemList &items, bool horz, bool vert)
{
    QVector<TBox> boxes;
    for (ICanvasItem *entry : items) {
        const auto *item = dynamic_cast<TCanvasSpectrum *>(canvasItem(entry));
        const TBasePlot *plot = item ? item->activePlot() : nullptr;
        boxes.append(TBox());
        if (plot && horz)
            boxes.last().fX = plot->axis(horzDir).getScale().sorted();
        if (plot && vert)
            boxes.last().fY = plot->axis(vertDir).getScale().sorted();
    }
    if (items.size() != 1)
        return stepFor(items, boxes);
    TScriptStep step("zoomTo");
    tell(step.on(items), boxes.first());
    return step;
}
