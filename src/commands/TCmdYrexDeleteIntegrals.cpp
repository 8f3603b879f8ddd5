#include "TCmdYrexDeleteIntegrals.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexIntegralGroup.h"
#include "TYrexStepValues.h"
#include "history/THistoryCommand.h"
#include "utils/GeometryUtils.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int cAllModes = TYrexIntegrationRegion::cAutomatic | TYrexIntegrationRegion::cManual;

bool isNear(double a, double b)
{
    return std::fabs(a - b) * 1000000000000.0 <= std::min(std::fabs(a), std::fabs(b));
}

bool isNear(const QRectF &a, const QRectF &b)
{
    return isNear(a.left(), b.left()) && isNear(a.right(), b.right()) && isNear(a.top(), b.top()) &&
           isNear(a.bottom(), b.bottom());
}

} // namespace

TCmdYrexDeleteIntegrals::TCmdYrexDeleteIntegrals(const TCanvasItemList &items, const TYrexSpectrumPlaces &places)
    : TYrexVoidUnlessChanged(tr("Delete Zarnu Integrals"), items)
    , fPlaces(places.orCurrentOf(items))
    , fSaved(TCanvasItemsCommand::items().size())
    , fMatches(TCanvasItemsCommand::items().size())
    , fBySpectrum(TCanvasItemsCommand::items().size())
    , fAll(true)
{
    for (int i = 0; i < fBySpectrum.size(); ++i)
        findRegions(*yrexItemAt(i), i, {}, false);
    setScript(TScriptStep("deleteIntegrals").on(TCanvasItemsCommand::items()));
}

TCmdYrexDeleteIntegrals::TCmdYrexDeleteIntegrals(const TCanvasItemList &items, const QVector<int> &regions,
                                                 const TYrexSpectrumPlaces &places)
    : TYrexVoidUnlessChanged(tr("Delete Integrals"), items)
    , fPlaces(places.orCurrentOf(items))
    , fSaved(TCanvasItemsCommand::items().size())
    , fMatches(TCanvasItemsCommand::items().size())
    , fBySpectrum(TCanvasItemsCommand::items().size())
{
    QVector<int> found;
    for (int i = 0; i < fBySpectrum.size(); ++i) {
        const TYrexSpectrum *spectrum = fPlaces.spectrum(yrexItemAt(i));
        QVector<QRectF> rects;
        for (const int region : regions) {
            if (!spectrum || region < 0 || region >= spectrum->integrals().count())
                continue;
            if (!found.contains(region))
                found.append(region);
            rects.append(YrexIntegralGroup::rectOf(*spectrum->integrals().at(region)));
        }
        findRegions(*yrexItemAt(i), i, rects, true);
    }
    const QVariant told = YrexStepValues::byItem({found});
    setScript(TScriptStep("deleteIntegrals").on(TCanvasItemsCommand::items()).with("integrals", told));
}

TCmdYrexDeleteIntegrals::TCmdYrexDeleteIntegrals(const TCanvasItemList &items, const QRectF &rect, int unit)
    : TCmdYrexDeleteIntegrals(items, rect.left(), rect.right(), unit)
{
}

TCmdYrexDeleteIntegrals::TCmdYrexDeleteIntegrals(const TCanvasItemList &items, double from, double to, int unit,
                                                 const TYrexSpectrumPlaces &places)
    : TYrexVoidUnlessChanged(tr("Delete Zarnu Integrals"), items)
    , fPlaces(places.orCurrentOf(items))
    , fSaved(TCanvasItemsCommand::items().size())
    , fMatches(TCanvasItemsCommand::items().size())
    , fBySpectrum(TCanvasItemsCommand::items().size())
{
    for (int i = 0; i < fBySpectrum.size(); ++i) {
        const TYrexSpectrum *spectrum = fPlaces.spectrum(yrexItemAt(i));
        const double left = spectrum ? spectrum->xIndexOf(unit, from) : 0.0;
        const double right = spectrum ? spectrum->xIndexOf(unit, to) : 0.0;
        if (spectrum && std::isfinite(left) && std::isfinite(right))
            findRegions(*yrexItemAt(i), i, {QRectF(QPointF(left, 0.0), QPointF(right, 0.0)).normalized()}, false);
    }
    TScriptStep step("deleteIntegrals");
    step.on(TCanvasItemsCommand::items()).with("from", from).with("to", to);
    setScript(step.with("xUnits", YrexStepValues::unit(unit)));
}

void TCmdYrexDeleteIntegrals::setScript(TScriptStep step)
{
    fScript = YrexStepValues::withSpectrum(std::move(step), fPlaces, items());
}

void TCmdYrexDeleteIntegrals::findRegions(const TCanvasYrexSpectrum &item, int index, const QVector<QRectF> &rects,
                                          bool exactly)
{
    fMatches[index].resize(item.stack().count());
    const auto isMeant = [&](const TYrexIntegrationRegion &region) {
        const QRectF place = YrexIntegralGroup::rectOf(region);
        return fAll || std::any_of(rects.begin(), rects.end(), [&](const QRectF &rect) {
                   return isNear(place, rect) || (!exactly && !Utils::Geometry::intersect(place, rect).isNull());
               });
    };
    for (const int specIndex : YrexIntegralGroup::spectraOf(item, fPlaces.index(&item))) {
        for (const TYrexIntegrationRegion *region : item.stack().at(specIndex)->integrals()) {
            if (!isMeant(*region))
                continue;
            fBySpectrum[index][specIndex].append(region->id);
            fMatches[index].setBit(specIndex);
        }
    }
}

void TCmdYrexDeleteIntegrals::dropHighlights(TCanvasYrexSpectrum &item)
{
    if (T1DYrexPlot *plot = item.activeYrexPlot())
        plot->clearHighlightedIntegrals();
}

void TCmdYrexDeleteIntegrals::doItem(TCanvasYrexSpectrum *item, int index)
{
    QVector<TYrexIntegrationRegions> &saved = fSaved[index];
    saved.clear();
    for (const TYrexSpectrum *spectrum : item->spectra())
        saved.append(spectrum->integrals());
    dropHighlights(*item);
    const TFound &found = fBySpectrum.at(index);
    for (auto it = found.constBegin(); it != found.constEnd(); ++it) {
        TYrexSpectrum *spectrum = item->stack().at(it.key());
        if (!spectrum)
            continue;
        TYrexIntegrationRegions &integrals = spectrum->integrals();
        const int before = integrals.count();
        if (fAll)
            integrals.removeByMode(cAllModes);
        for (const QUuid &id : it.value())
            integrals.removeAt(integrals.indexOf(id));
        if (integrals.count() != before)
            noteChange();
    }
    item->update();
}

void TCmdYrexDeleteIntegrals::undoItem(TCanvasYrexSpectrum *item, int index)
{
    dropHighlights(*item);
    const QVector<TYrexIntegrationRegions> &saved = fSaved.at(index);
    for (int i = 0; i < qMin(saved.size(), item->stack().count()); ++i)
        item->stack().at(i)->integrals().assign(saved.at(i));
    item->update();
}

THistoryCommand *TCmdYrexDeleteIntegrals::makeItemHistory(TCanvasYrexSpectrum *item)
{
    const int index = items().indexOf(item);
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    for (int specIndex = 0; specIndex < fMatches.at(index).size(); ++specIndex) {
        if (!fMatches.at(index).testBit(specIndex))
            continue;
        item->setProperty("itemId", item->historyId());
        item->setProperty("specIndex", specIndex);
        entry->addParam(tr("Integrals"), tr("Zarnu Integrals Spectrum #") + QString::number(specIndex + 1), QString());
    }
    return entry;
}
