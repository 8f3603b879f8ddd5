#include "canvas/TCanvasItem.h"
#include "commands/TCmdDeleteItems.h"
#include "commands/TCmdMoveItem.h"
#include "script/TStepCall.h"
#include "script/steps/HostSteps.h"

namespace {

TCommand *moveItems(TStepCall &call)
{
    const TCanvasItemList items = call.items();
    const QVector<QRectF> rects = call.rects("rects");
    if (rects.size() != items.size())
        call.fail("rects", TStepCall::tr("expected one for each item"));
    return new TCmdMoveItem(items, rects);
}

} // namespace

QVector<TStepKind> itemSteps()
{
    return {
        {"moveItems", "items, {rects: [{x, y, width, height}]}",
         "Moves and resizes items on their pages, in units of 0.1 mm.", moveItems},
        {"deleteItems", "items", "Takes items off their pages.",
         [](TStepCall &call) { return new TCmdDeleteItems(call.items()); }},
    };
}
