#include "commands/TCmdPanSpectra.h"

#include "canvas/TCanvasSpectrum.h"
#include "contexts/TSpectrumItemCtx.h"
#include "history/THistoryCommand.h"
#include "plot/T1DStackedPlotProperties.h"
#include "plot/TBasePlot.h"

TCmdPanSpectra::TCmdPanSpectra(const TCanvasItemList &items, double dx, double dy)
    : TStackValuesCommand(tr("Panning"), items)
    , fDeltaX(dx)
    , fDeltaY(dy)
{
    setMergeableFlag(true);
}

TCmdPanSpectra::TCmdPanSpectra(const TCanvasItemList &items, const QMap<int, double> &offsets)
    : TStackValuesCommand(tr("Set Spectrum Offset"), items, offsets)
{
}

void TCmdPanSpectra::changeView(TCanvasSpectrum &item, TBasePlot &activePlot)
{
    TSpectrumItemCtx(&item, &activePlot).pan(fDeltaX, fDeltaY);
}

double TCmdPanSpectra::stackValue(const T1DStackedPlotProperties &properties, quint32 id) const
{
    return properties.offset(id);
}

void TCmdPanSpectra::setStackValue(T1DStackedPlotProperties &properties, quint32 id, double value) const
{
    properties.setOffset(id, value);
}

void TCmdPanSpectra::describe(THistoryCommand &entry) const
{
    TStackValuesCommand::describe(entry);
    if (fDeltaX != 0.0)
        entry.addParam("Horizontal", fDeltaX, QString());
    if (fDeltaY != 0.0)
        entry.addParam("Vertical", fDeltaY, QString());
}

TScriptStep TCmdPanSpectra::scriptStep() const
{
    if (hasValues())
        return TScriptStep("setOffsets").on(items()).with("offsets", TScriptStep::byIndex(values()));
    return TScriptStep("pan").on(items()).with("x", fDeltaX).with("y", fDeltaY);
}

void TCmdPanSpectra::completeScriptStep(TScriptStep &step) const
{
    const auto *item = items().size() == 1 ? dynamic_cast<TCanvasSpectrum *>(canvasItem(items().first())) : nullptr;
    TBasePlot *plot = item && !hasValues() ? item->activePlot() : nullptr;
    if (!plot)
        return;
    step = TScriptStep("zoomTo").on(items());
    const TRange x = plot->axis(horzDir).getScale().sorted();
    const TRange y = plot->axis(vertDir).getScale().sorted();
    if (fDeltaX != 0.0)
        step.with("from", x.a).with("to", x.b);
    if (fDeltaY != 0.0)
        step.with("lower", y.a).with("upper", y.b);
}
