#include "canvas/TCanvasItem.h"
#include "commands/TCmdChangeSpectraIntensity.h"
#include "commands/TCmdFitSpectraIntensityToHeight.h"
#include "commands/TCmdPanSpectra.h"
#include "commands/TCmdPlotProperties.h"
#include "commands/TCmdSpectraCuts.h"
#include "commands/TCmdZoomSpectra.h"
#include "properties/TPropertiesBag.h"
#include "script/TStepCall.h"
#include "script/steps/HostSteps.h"

namespace {

/// An axis that the call does not name has no span.
TRange limits(TStepCall &call, const char *from, const char *to)
{
    if (!call.has(from) && !call.has(to))
        return TRange();
    const double first = call.number(from);
    return TRange(first, call.number(to));
}

TCommand *zoomTo(TStepCall &call)
{
    const TCanvasItemList items = call.items();
    const TRange x = limits(call, "from", "to");
    const TRange y = limits(call, "lower", "upper");
    if (!(x.span() > 0.0) && !(y.span() > 0.0))
        call.fail("from", TStepCall::tr("expected limits"));
    return new TCmdZoomSpectra(items, x, y);
}

TCommand *zoomEach(TStepCall &call)
{
    const TCanvasItemList items = call.items();
    const QVariantList views = call.list("views");
    if (views.size() != items.size())
        call.fail("views", TStepCall::tr("expected one for each item"));
    QVector<TCmdZoomSpectra::TBox> boxes;
    for (const QVariant &view : views) {
        const QVariantMap map = view.toMap();
        const auto range = [&](const char *from, const char *to) {
            const bool isThere = map.contains(from) && map.contains(to);
            return isThere ? TRange(map.value(from).toDouble(), map.value(to).toDouble()) : TRange();
        };
        boxes.append({range("from", "to"), range("lower", "upper")});
    }
    return new TCmdZoomSpectra(items, boxes);
}

TCommand *fullView(TStepCall &call)
{
    return new TCmdZoomSpectra(call.items(), QRectF(), TCmdZoomSpectra::cFullView);
}

TCommand *pan(TStepCall &call)
{
    const TCanvasItemList items = call.items();
    const double right = call.number("right", 0.0);
    return new TCmdPanSpectra(items, right, call.number("up", 0.0));
}

TCommand *changeIntensity(TStepCall &call, bool up)
{
    const TCanvasItemList items = call.items();
    return new TCmdChangeSpectraIntensity(items, up, call.number("factor", 1.0));
}

TCommand *cut(TStepCall &call, TCmdSpectraCuts::TMode mode)
{
    const TCanvasItemList items = call.items();
    if (mode == TCmdSpectraCuts::cRestoreAll)
        return new TCmdSpectraCuts(items, mode, TRange());
    const double from = call.number("from");
    return new TCmdSpectraCuts(items, mode, TRange(from, call.number("to")));
}

/// The bag of an item that has all of these fields, with their values; null without.
std::unique_ptr<TPropertiesBag> bagWith(const TCanvasItem &item, const QVariantMap &fields)
{
    for (const std::unique_ptr<TPropertiesBag> &kind : item.properties().bags()) {
        const std::unique_ptr<TPropertiesBag> known = kind->create();
        known->fillFrom(item);
        std::unique_ptr<TPropertiesBag> bag = kind->create();
        for (auto it = fields.constBegin(); it != fields.constEnd(); ++it) {
            const QVariant present = known->value(it.key());
            QVariant value = it.value();
            if (present.isValid() && value.convert(present.userType()))
                bag->setValue(it.key(), value);
        }
        if (bag->values().size() == fields.size())
            return bag;
    }
    return nullptr;
}

TCommand *setProperties(TStepCall &call)
{
    const TCanvasItemList items = call.items();
    const QVariantMap fields = call.map("properties");
    std::unique_ptr<TPropertiesBag> bag;
    for (int i = 0; !bag && i < items.size(); ++i)
        bag = bagWith(*canvasItem(items.at(i)), fields);
    if (bag)
        return new TCmdPlotProperties(items, std::move(bag));
    call.fail("properties", TStepCall::tr("the items have no such properties"));
    return nullptr;
}

} // namespace

QVector<TStepKind> viewSteps()
{
    using TCuts = TCmdSpectraCuts;
    return {
        {"zoomTo", "items, {from, to, lower, upper}",
         "Shows a stretch of the horizontal axis, of the vertical one, or of both, in the units of the axes.", zoomTo},
        {"zoomEach", "items, {views: [{from, to, lower, upper}]}",
         "Shows stretches of the axes, others for each item, in the units of the axes.", zoomEach},
        {"fullView", "items", "Shows spectra as a whole.", fullView},
        {"pan", "items, {right, up}", "Moves what plots show to the right and up, in units of 0.1 mm.", pan},
        {"fitToHeight", "items", "Fits the vertical axis to what can be seen.",
         [](TStepCall &call) { return new TCmdFitSpectraIntensityToHeight(call.items()); }},
        {"increaseIntensity", "items, {factor}", "Draws spectra higher against the axis, by 1.1 times a factor.",
         [](TStepCall &call) { return changeIntensity(call, true); }},
        {"decreaseIntensity", "items, {factor}", "Draws spectra lower against the axis, by 1.1 times a factor.",
         [](TStepCall &call) { return changeIntensity(call, false); }},
        {"hideRange", "items, {from, to}", "Hides a stretch of the horizontal axis, in its unit.",
         [](TStepCall &call) { return cut(call, TCuts::cHide); }},
        {"showRange", "items, {from, to}", "Shows a hidden stretch of the horizontal axis again.",
         [](TStepCall &call) { return cut(call, TCuts::cShow); }},
        {"showAllRanges", "items", "Shows all hidden stretches of the horizontal axis again.",
         [](TStepCall &call) { return cut(call, TCuts::cRestoreAll); }},
        {"setProperties", "items, {properties: {name: value}}",
         "Changes how items look: the fields of the dialog of properties by their names.", setProperties},
    };
}
