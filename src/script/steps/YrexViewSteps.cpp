#include "TCanvasYrexSpectrum.h"
#include "TCmdShowYrexItemFeature.h"
#include "TCmdYrexItemStateChanged.h"
#include "TCmdYrexPlotProperties.h"
#include "TCmdYrexSpectrumPanning.h"
#include "TYrexSpectrumPropertiesBag.h"
#include "YrexStepArguments.h"
#include "YrexStepWords.h"
#include "YrexSteps.h"
#include "script/TStepCall.h"

namespace {

TCommand *showFeature(TStepCall &call)
{
    const TCanvasItemList items = YrexStepArguments::items(call);
    const int feature = YrexStepArguments::word(call, "feature", YrexStepWords::features());
    return new TCmdShowYrexItemFeature(feature, call.flag("show", true), items);
}

TCommand *setActiveSpectrum(TStepCall &call)
{
    const TCanvasItemList items = YrexStepArguments::items(call);
    const bool isEach = call.isList("spectrum");
    const QVector<int> given =
        isEach ? call.integers("spectrum") : QVector<int>(items.size(), call.integer("spectrum"));
    if (given.size() != items.size())
        call.fail("spectrum", TStepCall::tr("expected one for each item"));
    return new TCmdYrexItemStateChanged(given, items);
}

TCommand *setDisplayMode(TStepCall &call)
{
    const TCanvasItemList items = YrexStepArguments::items(call);
    const int mode = YrexStepArguments::word(call, "display", YrexStepWords::displayModes());
    return new TCmdYrexItemStateChanged(TCmdYrexItemStateChanged::cStackedMode, mode, items);
}

QVariant converted(TStepCall &call, const QString &field, QVariant value, const QVariant &known)
{
    const int type = known.userType();
    if (type == QMetaType::QColor) {
        const QColor color(value.toString());
        if (!color.isValid())
            call.fail(field, TStepCall::tr("expected a colour as \"#rrggbb\""));
        return color;
    }
    const bool isNumber = value.userType() == QMetaType::Double || value.userType() == QMetaType::Int;
    const bool wantsNumber = type == QMetaType::Double || type == QMetaType::Int;
    const bool isKind = wantsNumber ? isNumber : value.userType() == type;
    if (!isKind)
        call.fail(field, TStepCall::tr("expected a value like %1").arg(known.toString()));
    value.convert(type);
    return value;
}

TCommand *setPlotProperties(TStepCall &call)
{
    const TCanvasItemList items = YrexStepArguments::items(call);
    const QVariantMap given = call.map("properties");
    TYrexSpectrumPropertiesBag known;
    if (!items.isEmpty())
        known.fillFrom(*canvasItem(items.first()));
    TYrexSpectrumPropertiesBag bag;
    for (auto it = given.constBegin(); it != given.constEnd(); ++it) {
        if (known.values().contains(it.key()))
            bag.setValue(it.key(), converted(call, it.key(), it.value(), known.value(it.key())));
        else
            call.fail("properties", TStepCall::tr("there is no property \"%1\"").arg(it.key()));
    }
    return new TCmdYrexPlotProperties(items, bag);
}

TCommand *rememberView(TStepCall &call)
{
    constexpr int cStays = TCmdYrexSpectrumPanning::cPan + 1;
    return new TCmdYrexSpectrumPanning(cStays, YrexStepArguments::items(call), false);
}

} // namespace

QVector<TStepKind> yrexViewSteps()
{
    return {
        {"showFeature", "items, {feature, show}", "Shows or hides integrals, their labels or their curves.",
         showFeature},
        {"setActiveSpectrum", "items, {spectrum}", "Makes another spectrum of stacks the active one.",
         setActiveSpectrum},
        {"setDisplayMode", "items, {display}", "Displays stacks in another way.", setDisplayMode},
        {"setPlotProperties", "items, {properties: {name: value}}", "Changes how plots look.", setPlotProperties},
        {"rememberView", "items", "Remembers what plots show as a view to come back to.", rememberView},
    };
}
