#include "TCmdYrexIntegralCurveMove.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "history/THistoryCommand.h"

#include <cmath>

namespace {

constexpr double cLeastHeight = 0.01; // from 0 no factor would bring the curves back

} // namespace

TCmdYrexIntegralCurveMove::TCmdYrexIntegralCurveMove(const TCanvasItemList &items, bool topEdge, double delta,
                                                     const QRectF &rect)
    : TYrexVoidUnlessChanged(tr("Set Integrals Curves Height"), items)
    , fTopEdge(topEdge)
    , fDelta(delta)
    , fRect(rect.normalized())
    , fOldSettings(TCanvasItemsCommand::items().size())
    , fNewSettings(TCanvasItemsCommand::items().size())
{
}

bool TCmdYrexIntegralCurveMove::isApplicable(TCanvasYrexSpectrum *item) const
{
    return item->activeYrexPlot() && fRect.height() > 0.0 && std::isfinite(fDelta);
}

void TCmdYrexIntegralCurveMove::doItem(TCanvasYrexSpectrum *item, int index)
{
    T1DYrexPlot &plot = *item->activeYrexPlot();
    const TYrexIntegralBand old = TYrexIntegralBand::of(plot);
    fOldSettings[index] = old;
    const double asked = fTopEdge ? fDelta / fRect.height() + 1.0 : 1.0 - fDelta / fRect.height();
    TYrexIntegralBand band = old;
    band.fCurveMaxHeight = qBound(cLeastHeight, asked * old.fCurveMaxHeight, 1.0);
    const double factor = old.fCurveMaxHeight > 0.0 ? band.fCurveMaxHeight / old.fCurveMaxHeight : 1.0;
    // heights grow about the base of the curves: it moves so that the other edge stays
    const QRectF area = plot.plotter()->adjustedPlotArea();
    const double base = area.top() + old.fCurveMargin * area.height();
    const double fixed = fTopEdge ? fRect.bottom() : fRect.top();
    band.fCurveMargin += item->canvasToFraction((fixed - base) * (1.0 - factor), Qt::Vertical);
    if (!fNewSettings.at(index))
        fNewSettings[index] = band;
    if (fNewSettings.at(index)->giveTo(plot))
        noteChange();
    item->update();
}

void TCmdYrexIntegralCurveMove::undoItem(TCanvasYrexSpectrum *item, int index)
{
    fOldSettings.at(index).giveTo(*item->activeYrexPlot());
    item->update();
}

THistoryCommand *TCmdYrexIntegralCurveMove::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    const TYrexIntegralBand band = TYrexIntegralBand::of(*item->activeYrexPlot());
    entry->addParam(tr("Integral Curve Max Height"), band.fCurveMaxHeight, QString());
    entry->addParam(tr("Integral Curve Pos"), band.fCurveMargin, QString());
    return entry;
}
