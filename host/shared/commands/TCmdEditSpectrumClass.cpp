#include "commands/TCmdEditSpectrumClass.h"

#include "canvas/TCanvasItem.h"
#include "commands/ScriptWords.h"
#include "contexts/IStackedItemCtx.h"
#include "history/THistoryCommand.h"

TCmdEditSpectrumClass::TCmdEditSpectrumClass(const TCanvasItemList &items, const QVector<int> &indices,
                                             const TStackedClassProperties &properties)
    : TCanvasItemsCommand(tr("Set Spectrum Class"), items)
    , fIndices(indices)
    , fProperties(properties)
    , fBefore(items.size())
{
    fProperties.baseColor = ScriptWords::plainColor(properties.baseColor);
}

bool TCmdEditSpectrumClass::cmdItemApplicable(TCanvasItem *item) const
{
    return item->stackedContext() != nullptr;
}

void TCmdEditSpectrumClass::doCmd()
{
    fChanged = false;
    TCanvasItemsCommand::doCmd();
    setVoidFlag(!fChanged);
}

void TCmdEditSpectrumClass::doCmdItem(TCanvasItem *item, int index)
{
    IStackedItemCtx &stack = *item->stackedContext();
    TBefore &before = fBefore[index];
    before.names.clear();
    before.plots.capture(item);
    const bool isKnown = fProperties.name.isEmpty() || stack.classes().value(fProperties.name) == fProperties;
    for (const int each : qAsConst(fIndices)) {
        if (before.names.contains(each)) // named twice
            continue;
        if (each < 0 || each >= stack.count() || (isKnown && stack.className(each) == fProperties.name))
            continue;
        before.names.insert(each, stack.className(each));
        stack.setClass(each, fProperties);
    }
    if (before.names.isEmpty())
        return;
    fChanged = true;
    stack.update();
}

void TCmdEditSpectrumClass::undoCmdItem(TCanvasItem *item, int index)
{
    const TBefore &before = fBefore.at(index);
    for (auto it = before.names.constBegin(); it != before.names.constEnd(); ++it)
        item->stackedContext()->setClassName(it.key(), it.value());
    before.plots.restore(item);
}

THistoryCommand *TCmdEditSpectrumClass::itemHistoryCommand(TCanvasItem *item)
{
    auto *entry = new THistoryCommand(description(), item, QString());
    entry->addParam("Class", fProperties.name, QString());
    return entry;
}

TScriptStep TCmdEditSpectrumClass::scriptStep() const
{
    TScriptStep step("setClass");
    step.on(items()).with("spectra", QVariant::fromValue(fIndices)).with("className", fProperties.name);
    if (fProperties.baseColor.isValid())
        step.with("color", fProperties.baseColor);
    return step.with("colors", ScriptWords::colorModes().word(fProperties.colorMode))
        .with("line", ScriptWords::lineStyles().word(fProperties.lineStyle));
}
