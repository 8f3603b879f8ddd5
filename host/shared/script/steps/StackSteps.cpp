#include "canvas/TCanvasItem.h"
#include "commands/ScriptWords.h"
#include "commands/TCmdChangeSpectraIntensity.h"
#include "commands/TCmdEditSpectrumClass.h"
#include "commands/TCmdPanSpectra.h"
#include "commands/TCmdSpectraColors.h"
#include "commands/TCmdStackedItemsArrange.h"
#include "commands/TCmdStackedItemsDeletion.h"
#include "plugin/IPluginStacking.h"
#include "script/TStepCall.h"
#include "script/steps/HostSteps.h"
#include "services/IPluginHost.h"
#include "services/IScriptHost.h"

namespace {

TCommand *arrangeSpectra(TStepCall &call)
{
    const TCanvasItemList items = call.items();
    return new TCmdStackedItemsArrange(items, call.integers("order"));
}

TCommand *setVisible(TStepCall &call, bool visible)
{
    const TCanvasItemList items = call.items();
    return new TCmdStackedItemsArrange(items, call.integers("spectra"), visible);
}

TCommand *deleteSpectra(TStepCall &call)
{
    const TCanvasItemList items = call.items();
    return new TCmdStackedItemsDeletion(items, call.integers("spectra"));
}

TCommand *setClass(TStepCall &call)
{
    const TCanvasItemList items = call.items();
    const QVector<int> spectra = call.integers("spectra");
    TStackedClassProperties properties;
    properties.name = call.text("className");
    if (call.has("color"))
        properties.baseColor = call.color("color");
    properties.colorMode = call.word("colors", ScriptWords::colorModes(), properties.colorMode);
    properties.lineStyle = call.word("line", ScriptWords::lineStyles(), properties.lineStyle);
    return new TCmdEditSpectrumClass(items, spectra, properties);
}

TCommand *setColors(TStepCall &call)
{
    const TCanvasItemList items = call.items();
    QVector<QColor> colors;
    for (const QVariant &entry : call.list("colors")) {
        colors.append(QColor(entry.toString()));
        if (!colors.last().isValid())
            call.fail("colors", TStepCall::tr("expected colours as \"#rrggbb\""));
    }
    return new TCmdSpectraColors(items, colors);
}

TCommand *splitByClass(TStepCall &call)
{
    TCanvasItem *item = canvasItem(call.item());
    for (QObject *plugin : call.host().scripts()->plugins()) {
        auto *stacking = qobject_cast<IPluginStacking *>(plugin);
        if (TCommand *command = stacking && item ? stacking->splitByClassCommand(item, &call.document()) : nullptr)
            return command;
    }
    return nullptr;
}

TCommand *setFactors(TStepCall &call)
{
    const TCanvasItemList items = call.items();
    return new TCmdChangeSpectraIntensity(items, call.numbersByIndex("factors"));
}

TCommand *setOffsets(TStepCall &call)
{
    const TCanvasItemList items = call.items();
    return new TCmdPanSpectra(items, call.numbersByIndex("offsets"));
}

} // namespace

QVector<TStepKind> stackSteps()
{
    return {
        {"arrangeSpectra", "items, {order: [index]}", "Lets spectra come first, in this order.", arrangeSpectra},
        {"showSpectra", "items, {spectra: [index]}", "Shows hidden spectra of stacks again.",
         [](TStepCall &call) { return setVisible(call, true); }},
        {"hideSpectra", "items, {spectra: [index]}", "Hides spectra of stacks; one stays visible.",
         [](TStepCall &call) { return setVisible(call, false); }},
        {"deleteSpectra", "items, {spectra: [index]}", "Takes spectra out of stacks; one stays.", deleteSpectra},
        {"setClass", "items, {spectra: [index], className, color, colors, line}",
         "Files spectra under a class, with the colours and the line of its members; without a name takes it away.",
         setClass},
        {"setColors", "items, {colors: [color]}", "Gives each spectrum a colour.", setColors},
        {"splitByClass", "item", "Makes a new item of each class of a stack's spectra, on new pages.", splitByClass},
        {"setFactors", "items, {factors: {index: number}}", "Draws spectra of a stack higher by factors.", setFactors},
        {"setOffsets", "items, {offsets: {index: number}}",
         "Draws spectra of a stack higher by offsets in the vertical unit.", setOffsets},
    };
}
