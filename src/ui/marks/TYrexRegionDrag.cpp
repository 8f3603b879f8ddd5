#include "TYrexRegionDrag.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexDataAnalysisHandler.h"
#include "TYrexModePaint.h"
#include "TYrexModePlot.h"
#include "commands/TCmdEditRegions.h"
#include "contexts/DARegions.h"

#include <algorithm>
#include <cmath>

TYrexRegionDrag::TYrexRegionDrag(TCanvasYrexSpectrum *item, const QUuid &region, bool isTo)
    : fItem(item)
    , fBefore(item->daRegions())
    , fEdited(fBefore)
    , fPlace(DARegions::indexOf(fBefore, region))
    , fIsTo(isTo)
{
}

TYrexRegionDrag::~TYrexRegionDrag()
{
    TYrexRegionDrag::giveUp();
}

void TYrexRegionDrag::giveUp()
{
    if (!fItem || !fIsShown)
        return;
    fIsShown = false;
    fItem->setDARegions(fBefore);
    fItem->refreshGraphics();
}

void TYrexRegionDrag::moveTo(const QPointF &itemPos, double, Qt::KeyboardModifiers)
{
    if (!fItem || fPlace < 0 || !fItem->activePlotter())
        return;
    const QRectF curves = fItem->activePlotter()->getPlotCurvesRect();
    fMouse = QPointF(std::clamp(itemPos.x(), curves.left(), curves.right()), itemPos.y());
    const double moved = fItem->toRegionLimit(fItem->activePlotter()->canvas2Scale(horzDir, fMouse.x()));
    if (!std::isfinite(moved))
        return;
    const double other = fIsTo ? fBefore.at(fPlace).from : fBefore.at(fPlace).to;
    fEdited[fPlace].from = std::min(moved, other);
    fEdited[fPlace].to = std::max(moved, other);
    fIsShown = true;
    fItem->setDARegions(fEdited);
    fItem->refreshGraphics();
}

QString TYrexRegionDrag::text() const
{
    if (!fItem || fPlace < 0 || !fItem->activeYrexPlot())
        return QString();
    const TDARegion region = fItem->shownDARegions().at(fPlace);
    return TYrexDataAnalysisHandler::text(*fItem.get(), region.kind, region.from, region.to);
}

void TYrexRegionDrag::paint(QPainter &painter, const IPlotView &view) const
{
    const TYrexModePlot plot(fItem.get(), view);
    if (fPlace >= 0 && plot.isValid())
        TYrexModePaint(painter, plot).note(plot.itemToView().map(fMouse), text());
}

TCommand *TYrexRegionDrag::finish()
{
    giveUp();
    return fItem && fEdited != fBefore ? new TCmdEditRegions(fItem.get(), fEdited) : nullptr;
}
