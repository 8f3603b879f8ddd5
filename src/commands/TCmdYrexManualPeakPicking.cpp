#include "TCmdYrexManualPeakPicking.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexPeakPicking.h"
#include "TYrexStepValues.h"
#include "history/THistoryCommand.h"

#include <algorithm>
#include <cmath>

TCmdYrexManualPeakPicking::TCmdYrexManualPeakPicking(const TCanvasItemList &items, const QRectF &rect, bool deleteOnly,
                                                     double level)
    : TCmdYrexManualPeakPickingBase(tr("Zarnu Manual Peak Picking"), items)
    , fRect(rect)
    , fFrom(rect.left())
    , fTo(rect.right())
    , fLevel(level)
    , fDeleteOnly(deleteOnly)
    , fPicked(TCanvasItemsCommand::items().size())
{
}

TCmdYrexManualPeakPicking::TCmdYrexManualPeakPicking(const TCanvasItemList &items, double from, double to, int unit,
                                                     bool deleteOnly, double level)
    : TCmdYrexManualPeakPicking(items, QRectF(QPointF(from, 0.0), QPointF(to, 0.0)), deleteOnly, level)
{
    fFrom = from;
    fTo = to;
    fUnit = unit;
}

void TCmdYrexManualPeakPicking::pickIn(TYrexSpectrum &spectrum, int unit)
{
    const double left = spectrum.xIndexOf(unit, fFrom);
    const double right = spectrum.xIndexOf(unit, fTo);
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
            pickIn(*spectrum, fUnit == cShownUnit ? plot->xUnits() : fUnit);
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
    entry->addParam(tr("From"), fFrom, QString());
    entry->addParam(tr("To"), fTo, QString());
    entry->addParam(tr("Region"), fRect, QString());
    const bool hasLevel = !fDeleteOnly && !std::isnan(fLevel);
    entry->addParam(tr("Threshold"), hasLevel ? fLevel : 0.0, hasLevel ? QString() : tr("none"));
    return entry;
}

/// The unit that all plots show; cShownUnit where they differ.
int TCmdYrexManualPeakPicking::toldUnit() const
{
    int unit = fUnit;
    for (int i = 0; i < items().size(); ++i) {
        const T1DYrexPlot *plot = yrexItemAt(i)->activeYrexPlot();
        if (fUnit != cShownUnit || !plot)
            continue;
        if (unit != cShownUnit && unit != plot->xUnits())
            return cShownUnit;
        unit = plot->xUnits();
    }
    return unit;
}

TScriptStep TCmdYrexManualPeakPicking::scriptStep() const
{
    TScriptStep step(fDeleteOnly ? "deletePeaksBetween" : "pickPeaks");
    step.on(items()).with("from", fFrom).with("to", fTo);
    const int unit = toldUnit();
    if (unit != cShownUnit)
        step.with("xUnits", YrexStepValues::unit(unit));
    if (!fDeleteOnly && !std::isnan(fLevel))
        step.with("threshold", fLevel);
    return step;
}
