#include "TCmdYrexEditIntegral.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexIntegralGroup.h"
#include "TYrexStepValues.h"
#include "history/THistoryCommand.h"
#include "utils/GeometryUtils.h"

#include <cmath>

namespace {

/// Whether the bound could move there.
bool moveBound(TYrexIntegrationRegion &region, int edge, double bound)
{
    const double a = region.boundA;
    const double b = region.boundB;
    if (edge == TCmdYrexEditIntegral::cFirstBound && ((b > a && b > bound) || (a > b && bound > b))) {
        region.boundA = bound;
        return true;
    }
    if (edge == TCmdYrexEditIntegral::cSecondBound && ((b > a && bound > a) || (a > b && a > bound))) {
        region.boundB = bound;
        return true;
    }
    return false;
}

} // namespace

TCmdYrexEditIntegral::TCmdYrexEditIntegral(TCanvasYrexSpectrum *item, const QUuid &regionId, int edge, double x,
                                           int unit, const TYrexSpectrumPlaces &places)
    : TCmdYrexEditIntegralBase(TCanvasItemList{item}, regionId, places)
    , fTargetName(QStringLiteral("integrals"))
    , fEdge(edge)
    , fX(x)
    , fUnit(unit)
{
    const TYrexSpectrum *spectrum = TCmdYrexEditIntegralBase::places().spectrum(item);
    const TYrexIntegrationRegion *region = spectrum ? spectrum->integrals().region(regionId) : nullptr;
    const double place = region ? spectrum->xIndexOf(unit, x) : 0.0;
    if (!region || !std::isfinite(place))
        return;
    const double bound = qBound(0.0, place, double(spectrum->pointCount() - 1));
    TYrexIntegrationRegion edited = *region;
    if (!moveBound(edited, edge, bound))
        return;
    setRegion(edited);
    carryAlong(*item, *region, edge, bound);
}

TCmdYrexEditIntegral::TCmdYrexEditIntegral(const TCanvasItemList &items, const TYrexIntegrationRegion &region,
                                           const QUuid &regionId, const TYrexSpectrumPlaces &places)
    : TCmdYrexEditIntegralBase(items, regionId, places)
    , fTargetName(QStringLiteral("Zarnuintegrals"))
{
    if (std::isfinite(region.boundA) && std::isfinite(region.boundB))
        setRegion(region);
}

void TCmdYrexEditIntegral::carryAlong(const TCanvasYrexSpectrum &item, const TYrexIntegrationRegion &edited, int edge,
                                      double bound)
{
    const QRectF rect = YrexIntegralGroup::rectOf(edited);
    for (const int specIndex : YrexIntegralGroup::spectraOf(item, places().index(&item))) {
        if (specIndex == places().index(&item))
            continue;
        for (const TYrexIntegrationRegion *region : item.stack().at(specIndex)->integrals()) {
            TYrexIntegrationRegion copy = *region;
            if (!Utils::Geometry::intersect(rect, YrexIntegralGroup::rectOf(*region)).isNull() &&
                moveBound(copy, edge, bound))
                fOverlapped[specIndex].append({region->id, copy});
        }
    }
}

void TCmdYrexEditIntegral::applyToSpectrum(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex)
{
    TCmdYrexEditIntegralBase::applyToSpectrum(item, index, spectrum, specIndex);
    for (auto it = fOverlapped.constBegin(); it != fOverlapped.constEnd(); ++it) {
        TYrexSpectrum *other = item->stack().at(it.key());
        for (const QPair<QUuid, TYrexIntegrationRegion> &edited : it.value()) {
            if (other)
                replaceRegion(*other, edited.first, edited.second);
        }
    }
}

THistoryCommand *TCmdYrexEditIntegral::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TCmdYrexEditIntegralBase::makeItemHistory(item);
    if (entry)
        entry->addParam(tr("Target"), fTargetName, QString());
    return entry;
}

TScriptStep TCmdYrexEditIntegral::scriptStep() const
{
    TCanvasItemList edited;
    const TYrexIntegrationRegion *before = nullptr;
    int place = -1; // in the first item; others are found by the same id
    for (ICanvasItem *item : items()) {
        const TYrexSpectrum *spectrum = places().spectrum(yrexItem(item));
        const int found = spectrum ? spectrum->integrals().indexOf(regionId()) : -1;
        if (found < 0)
            continue;
        if (edited.isEmpty()) {
            place = found;
            before = spectrum->integrals().at(found);
        }
        edited.append(item);
    }
    if (!region() || !before)
        return TScriptStep();
    TScriptStep step(fEdge == 0 ? "setIntegralBounds" : "moveIntegralBound");
    step.on(edited).with("integral", place);
    if (fEdge != 0) {
        step.with("bound", fEdge == cFirstBound ? "first" : "second").with("x", fX);
        step.with("xUnits", YrexStepValues::unit(fUnit));
    } else {
        step.with("fromPoint", region()->boundA).with("toPoint", region()->boundB);
        if (region()->maximum != before->maximum)
            step.with("maximum", region()->maximum);
    }
    return YrexStepValues::withSpectrum(step, places(), edited);
}
