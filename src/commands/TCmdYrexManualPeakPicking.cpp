#include "TCmdYrexManualPeakPicking.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexPeakPicking.h"
#include "history/THistoryCommand.h"

#include <algorithm>
#include <cmath>

TCmdYrexManualPeakPicking::TCmdYrexManualPeakPicking(const TCanvasItemList &items, const QRectF &rect, bool deleteOnly,
                                                     double level)
    : TCmdYrexManualPeakPickingBase(tr("Zarnu Manual Peak Picking"), items)
    , fRect(rect)
    , fLevel(level)
    , fDeleteOnly(deleteOnly)
    , fPicked(TCanvasItemsCommand::items().size())
{
}

void TCmdYrexManualPeakPicking::pickIn(TYrexSpectrum &spectrum, int unit)
{
    const double left = spectrum.xIndexOf(unit, fRect.left());
    const double right = spectrum.xIndexOf(unit, fRect.right());
    if (!std::isfinite(left) || !std::isfinite(right))
        return;
    const double a = std::min(left, right);
    const double b = std::max(left, right);
    TYrexDPLib::TYrexDPPeakList &peaks = spectrum.peaks();
    for (int i = peaks.size() - 1; i >= 0; --i) {
        if (peaks.at(i)->position >= a && peaks.at(i)->position <= b)
            delete peaks.takeAt(i);
    }
    if (!fDeleteOnly)
        TYrexPeakPicking::pickInRange(spectrum, a, b,
                                      std::isnan(fLevel) ? TYrexPeakPicking::openLevel(spectrum) : fLevel);
}

void TCmdYrexManualPeakPicking::doItem(TCanvasYrexSpectrum *item, int index)
{
    const T1DYrexPlot *plot = item->activeYrexPlot();
    if (!plot)
        return;
    if (fDeleteOnly)
        setDescription(tr("Delete peaks from visible range"));
    if (!fPicked.at(index).isEmpty()) {
        putLists(fPicked.at(index), *item);
    } else {
        for (TYrexSpectrum *spectrum : item->spectra())
            pickIn(*spectrum, plot->xUnits());
        fPicked[index] = listsOf(*item);
    }
    for (int i = 0; i < qMin(savedLists(index).size(), item->stack().count()); ++i) {
        if (!YrexPeakCopies::sameIds(savedLists(index).at(i), item->stack().at(i)->peaks()))
            noteChange();
    }
    item->update();
}

THistoryCommand *TCmdYrexManualPeakPicking::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    entry->addParam(tr("From"), fRect.left(), QString());
    entry->addParam(tr("To"), fRect.right(), QString());
    entry->addParam(tr("Region"), fRect, QString());
    const bool hasLevel = !fDeleteOnly && !std::isnan(fLevel);
    entry->addParam(tr("Threshold"), hasLevel ? fLevel : 0.0, hasLevel ? QString() : tr("none"));
    return entry;
}
