#include "commands/TCmdPanSpectra.h"

#include "canvas/TCanvasSpectrum.h"
#include "commands/TCmdZoomSpectra.h"
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
    return TScriptStep("zoomEach"); // told once it is known where it led
}

void TCmdPanSpectra::completeScriptStep(TScriptStep &step) const
{
    if (!hasValues())
        step = TCmdZoomSpectra::stepTo(items(), fDeltaX != 0.0, fDeltaY != 0.0);
}
