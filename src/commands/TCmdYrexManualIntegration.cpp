#include "TCmdYrexManualIntegration.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexIntegralHistory.h"
#include "TYrexStepValues.h"
#include "TYrexUnits.h"
#include "history/THistoryCommand.h"

#include <algorithm>
#include <cmath>

TCmdYrexManualIntegration::TCmdYrexManualIntegration(const TCanvasItemList &items, int kind, double fromX, double toX,
                                                     int xUnit, int yUnit)
    : TYrexVoidUnlessChanged(tr("Manual Integration"), items)
    , fKind(kind)
    , fFromX(fromX)
    , fToX(toX)
    , fXUnit(xUnit)
    , fYUnit(yUnit)
    , fRegions(TCanvasItemsCommand::items().size())
{
}

bool TCmdYrexManualIntegration::misses(const TYrexSpectrum &spectrum) const
{
    const double from = spectrum.xIndexOf(fXUnit, fFromX);
    const double to = spectrum.xIndexOf(fXUnit, fToX);
    return !std::isfinite(from) || !std::isfinite(to) || std::max(from, to) < 0.0 ||
           std::min(from, to) > spectrum.pointCount() - 1;
}

bool TCmdYrexManualIntegration::missesAny() const
{
    const QVector<QVector<int>> reached = targets();
    for (int i = 0; i < reached.size(); ++i) {
        for (const int index : reached.at(i)) {
            const TYrexSpectrum *spectrum = yrexItemAt(i)->stack().at(index);
            if (spectrum && misses(*spectrum))
                return true;
        }
    }
    return false;
}

void TCmdYrexManualIntegration::applyToSpectrum(TCanvasYrexSpectrum *, int index, TYrexSpectrum *spectrum,
                                                int specIndex)
{
    if (misses(*spectrum))
        return;
    const double last = spectrum->pointCount() - 1;
    const double from = spectrum->xIndexOf(fXUnit, fFromX);
    const double to = spectrum->xIndexOf(fXUnit, fToX);
    TYrexIntegrationRegion region(qBound(0.0, from, last), qBound(0.0, to, last), TYrexIntegrationRegion::cManual);
    if (fRegions.at(index).contains(specIndex)) // done again: the region is the same one
        region.id = fRegions.at(index).value(specIndex).id;
    TYrexIntegrationRegions &integrals = spectrum->integrals();
    const bool isFirst = integrals.isEmpty();
    integrals.append(region);
    TYrexIntegrationRegion &added = *integrals.at(integrals.count() - 1);
    TYrexIntegrationRegions::calculateArea(*spectrum, added, fYUnit == cUnitArbitrary ? spectrum->yUnits() : fYUnit);
    if (isFirst) {
        integrals.setReferenceIndex(fReferenceIndex);
        integrals.normalizeToReference();
    }
    fRegions[index].insert(specIndex, added);
    noteChange();
}

THistoryCommand *TCmdYrexManualIntegration::makeItemHistory(TCanvasYrexSpectrum *item)
{
    const QMap<int, TYrexIntegrationRegion> made = fRegions.value(items().indexOf(item));
    if (made.isEmpty())
        return nullptr;
    THistoryCommand *entry = TYrexSpectrumListCommand::makeItemHistory(item);
    YrexIntegralHistory::tell(*entry, *item, made.lastKey(), made.last(), fXUnit, false);
    if (fKind == 0 && made.last().mode == TYrexIntegrationRegion::cManual) {
        entry->addParam(tr("From"), fFromX, QString());
        entry->addParam(tr("To"), fToX, QString());
    }
    return entry;
}

TScriptStep TCmdYrexManualIntegration::scriptStep() const
{
    TScriptStep step("integrate");
    step.on(items()).with("from", fFromX).with("to", fToX).with("xUnits", YrexStepValues::unit(fXUnit));
    if (fYUnit != cUnitArbitrary)
        step.with("areaUnits", YrexStepValues::unit(fYUnit));
    return YrexStepValues::withSpectra(step, targets(), items());
}
