#include "TStackEdits.h"

#include "canvas/TCanvasSpectrum.h"
#include "commands/TCmdActiveSpectrum.h"
#include "commands/TCmdChangePlots.h"
#include "contexts/IStackedItemCtx.h"

TCommand *TStackEdits::activeCommand(TCanvasItem *item, int index)
{
    return new TCmdActiveSpectrum(TCanvasItemList{item}, index);
}

TCommand *TStackEdits::colorsCommand(TCanvasItem *item, const QVector<QColor> &colors)
{
    return new TCmdChangePlots(TCmdChangePlots::tr("Set Stacked Colours"), TCanvasItemList{item},
                               [colors](TCanvasSpectrum &spectrum, TBasePlot &) {
                                   if (IStackedItemCtx *stack = spectrum.stackedContext())
                                       stack->setAllColors(colors);
                               });
}
