#include "TYrexCompareItems.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexArrayedFromSelection.h"
#include "TYrexPlugin.h"
#include "canvas/TPage.h"
#include "log/TLogger.h"

#include <algorithm>
#include <cmath>

TCanvasItem *TYrexCompareItems::compare(const TCanvasItemList &items, int flags)
{
    const QString place = QStringLiteral("TYrexCompareItems::compareItems");
    if (!fPlugin) {
        TLogger::printToLogger(place, "Fatal error, no YrexPlugin", TLogger::cFatal);
        return nullptr;
    }
    const TCanvasItemList spectra = items.getByRtti(TCanvasYrexSpectrum::cRtti);
    if (spectra.size() < 2)
        return nullptr;
    QVector<TCanvasYrexSpectrum *> made =
        TCmdYrexArrayedFromSelection::stackFromCanvasItemsList(spectra, fPlugin, false, nullptr, nullptr);
    if (made.size() > 1) {
        TLogger::printToLogger(place, "Unexpected result creating stacked YREX spectra", TLogger::cError);
        qDeleteAll(made.begin() + 1, made.end());
    }
    TCanvasYrexSpectrum *item = made.value(0);
    if (!item)
        return nullptr;
    if (const TPage *page = canvasItem(spectra.first())->canvas())
        item->setRect(page->offeredRect(item));
    if (T1DYrexPlot *plot = item->activeYrexPlot()) {
        applyStackedPlotFlags(*plot, flags);
        applyTitlePlotFlags(plot->titleProperties(), flags);
        if (flags & cNormalisedHeights)
            normaliseHeights(*item);
        plot->resetView();
    }
    return item;
}

/// All curves get the height of the tallest; the data stay as they are.
void TYrexCompareItems::normaliseHeights(TCanvasYrexSpectrum &item)
{
    QVector<double> heights;
    for (const TYrexSpectrum *spectrum : item.spectra()) {
        const QVector<double> &values = spectrum->values();
        const auto ends = std::minmax_element(values.begin(), values.end());
        heights.append(values.isEmpty() ? 0.0 : *ends.second - *ends.first);
    }
    const double tallest = heights.isEmpty() ? 0.0 : *std::max_element(heights.begin(), heights.end());
    for (int i = 0; i < heights.size(); ++i) {
        if (heights.at(i) > 0.0)
            item.activeYrexPlot()->stackedProperties().setFactor(item.stack().idOf(i), tallest / heights.at(i));
    }
}
