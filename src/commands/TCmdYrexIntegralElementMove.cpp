#include "TCmdYrexIntegralElementMove.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "history/THistoryCommand.h"

#include <cmath>

namespace {

QString descriptionOf(int element)
{
    switch (element) {
    case TCmdYrexIntegralElementMove::cLabels:
        return TCmdYrexIntegralElementMove::tr("Move Integrals Labels");
    case TCmdYrexIntegralElementMove::cCurves:
        return TCmdYrexIntegralElementMove::tr("Move Integrals Curves");
    default:
        return TCmdYrexIntegralElementMove::tr("Set Integrals Curves Height");
    }
}

} // namespace

TCmdYrexIntegralElementMove::TCmdYrexIntegralElementMove(const TCanvasItemList &items, int element, double displacement)
    : TYrexVoidUnlessChanged(descriptionOf(element), items)
    , fElement(element)
    , fDisplacement(displacement)
    , fOld(TCanvasItemsCommand::items().size())
    , fNew(TCanvasItemsCommand::items().size())
{
    setMergeableFlag(true);
}

TCmdYrexIntegralElementMove::TCmdYrexIntegralElementMove(const TCanvasItemList &items, int element,
                                                         const QVector<TYrexIntegralBand> &bands)
    : TCmdYrexIntegralElementMove(items, element, 0.0)
{
    for (int i = 0; i < qMin(fNew.size(), bands.size()); ++i)
        fNew[i] = bands.at(i);
}

bool TCmdYrexIntegralElementMove::isApplicable(TCanvasYrexSpectrum *item) const
{
    return item->activeYrexPlot() && std::isfinite(fDisplacement);
}

void TCmdYrexIntegralElementMove::doItem(TCanvasYrexSpectrum *item, int index)
{
    T1DYrexPlot &plot = *item->activeYrexPlot();
    TYrexIntegralBand band = TYrexIntegralBand::of(plot);
    fOld[index] = band;
    const double way = item->canvasToFraction(fDisplacement, Qt::Vertical);
    if (fElement == cLabels)
        band.fRangeMargin += way;
    else if (fElement == cCurves)
        band.fCurveMargin += way;
    else if (fElement == cCurveHeight)
        band.fCurveMaxHeight += way;
    if (!fNew.at(index))
        fNew[index] = band;
    if (fNew.at(index)->giveTo(plot))
        noteChange();
    item->update();
}

void TCmdYrexIntegralElementMove::undoItem(TCanvasYrexSpectrum *item, int index)
{
    fOld.at(index).giveTo(*item->activeYrexPlot());
    item->update();
}

THistoryCommand *TCmdYrexIntegralElementMove::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    if (fDisplacement != 0.0)
        entry->addParam(tr("Displacement"), fDisplacement, QString());
    return entry;
}
