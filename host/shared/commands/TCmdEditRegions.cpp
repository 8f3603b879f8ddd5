#include "commands/TCmdEditRegions.h"

#include "canvas/TCanvasItem.h"
#include "commands/ScriptWords.h"
#include "contexts/IDARegionsItem.h"
#include "history/THistoryCommand.h"

#include <algorithm>

TCmdEditRegions::TCmdEditRegions(TCanvasItem *item, const QVector<TDARegion> &regions)
    : TCanvasItemsCommand(tr("Edit Regions"), TCanvasItemList{item})
    , fOther(regions)
{
    for (TDARegion &region : fOther)
        region.color = ScriptWords::plainColor(region.color);
}

bool TCmdEditRegions::cmdItemApplicable(TCanvasItem *item) const
{
    return item->regionsItem() != nullptr;
}

void TCmdEditRegions::doCmd()
{
    fChanged = false;
    TCanvasItemsCommand::doCmd();
    setVoidFlag(!fChanged);
}

void TCmdEditRegions::doCmdItem(TCanvasItem *item, int)
{
    const QVector<TDARegion> before = item->regionsItem()->daRegions();
    fChanged = !(before == fOther);
    item->regionsItem()->setDARegions(fOther);
    fOther = before;
}

void TCmdEditRegions::undoCmdItem(TCanvasItem *item, int index)
{
    doCmdItem(item, index);
}

THistoryCommand *TCmdEditRegions::itemHistoryCommand(TCanvasItem *item)
{
    constexpr int cDigits = 10;
    auto *entry = new THistoryCommand(description(), item, QString());
    const QVector<TDARegion> regions = item->regionsItem()->shownDARegions();
    for (const TDARegion &region : regions) {
        const QString kind = region.kind == TDARegion::cHighestPeak ? tr("highest peak") : tr("sum");
        entry->addParam(
            region.name,
            tr("%1, %2 to %3")
                .arg(kind, QString::number(region.from, 'g', cDigits), QString::number(region.to, 'g', cDigits)),
            QString());
    }
    return entry;
}

TScriptStep TCmdEditRegions::scriptStep() const
{
    TCanvasItem *item = canvasItem(items().first());
    if (!item || !item->regionsItem())
        return TScriptStep();
    const QVector<TDARegion> before = item->regionsItem()->daRegions();
    QVariantList regions;
    for (const TDARegion &region : fOther) {
        QVariantMap fields{{"name", region.name},
                           {"kind", ScriptWords::regionKinds().word(region.kind)},
                           {"from", region.from},
                           {"to", region.to}};
        if (region.color.isValid())
            fields.insert("color", region.color);
        const auto isSame = [&region](const TDARegion &other) { return other.id == region.id; };
        const auto was = std::find_if(before.begin(), before.end(), isSame);
        if (was != before.end())
            fields.insert("was", int(was - before.begin()));
        regions.append(fields);
    }
    return TScriptStep("setRegions").on(items()).with("regions", regions);
}
