#include "commands/TCmdSpectraColors.h"

#include "canvas/TCanvasSpectrum.h"
#include "commands/ScriptWords.h"
#include "contexts/IStackedItemCtx.h"

namespace {

QVector<QColor> plainColors(QVector<QColor> colors)
{
    for (QColor &color : colors)
        color = ScriptWords::plainColor(color);
    return colors;
}

} // namespace

TCmdSpectraColors::TCmdSpectraColors(const TCanvasItemList &items, const QVector<QColor> &colors)
    : TCmdChangePlots(tr("Set Stacked Colours"), items,
                      [plain = plainColors(colors)](TCanvasSpectrum &item, TBasePlot &) {
                          if (IStackedItemCtx *stack = item.stackedContext())
                              stack->setAllColors(plain);
                      })
    , fColors(plainColors(colors))
{
}

TScriptStep TCmdSpectraColors::scriptStep() const
{
    QVariantList colors;
    for (const QColor &color : fColors)
        colors.append(color);
    return TScriptStep("setColors").on(items()).with("colors", colors);
}
