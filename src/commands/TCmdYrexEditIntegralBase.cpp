#include "TCmdYrexEditIntegralBase.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexIntegralHistory.h"
#include "TYrexPeakCopies.h"
#include "history/THistoryCommand.h"
#include "stream/TDataStream.h"

namespace {

constexpr int cAllModes = TYrexIntegrationRegion::cAutomatic | TYrexIntegrationRegion::cManual;

bool isAlike(const TYrexIntegrationRegion &a, const TYrexIntegrationRegion &b)
{
    return a.boundA == b.boundA && a.boundB == b.boundB && a.mode == b.mode && a.area == b.area &&
           a.maximum == b.maximum && a.reserved == b.reserved;
}

} // namespace

TCmdYrexEditIntegralBase::TCmdYrexEditIntegralBase(const TCanvasItemList &items, const QUuid &regionId,
                                                   const TYrexSpectrumPlaces &places)
    : TYrexVoidUnlessChanged(tr("Edit Integral"), items)
    , fPlaces(places.orCurrentOf(items))
    , fRegionId(regionId)
    , fSaved(TCanvasItemsCommand::items().size())
{
}

void TCmdYrexEditIntegralBase::setRegion(const TYrexIntegrationRegion &region)
{
    fRegion = std::make_unique<TYrexIntegrationRegion>(region);
    fRegion->mode = TYrexIntegrationRegion::cManual;
}

void TCmdYrexEditIntegralBase::replaceRegion(TYrexSpectrum &spectrum, const QUuid &id,
                                             const TYrexIntegrationRegion &edited)
{
    TYrexIntegrationRegion *region = spectrum.integrals().region(id);
    if (!region)
        return;
    const TYrexIntegrationRegion before = *region;
    *region = edited;
    region->id = before.id;
    region->reference = before.reference;
    TYrexIntegrationRegions::calculateArea(spectrum, *region, spectrum.yUnits());
    if (!isAlike(*region, before))
        noteChange();
}

void TCmdYrexEditIntegralBase::doItem(TCanvasYrexSpectrum *item, int index)
{
    saveItem(item, index);
    if (TYrexSpectrum *spectrum = fRegion ? fPlaces.spectrum(item) : nullptr)
        applyToSpectrum(item, index, spectrum, fPlaces.index(item));
    item->update();
}

void TCmdYrexEditIntegralBase::applyToSpectrum(TCanvasYrexSpectrum *, int, TYrexSpectrum *spectrum, int)
{
    replaceRegion(*spectrum, fRegionId, *fRegion);
}

void TCmdYrexEditIntegralBase::saveItem(TCanvasYrexSpectrum *item, int index)
{
    QVector<QByteArray> &saved = fSaved[index];
    saved.clear();
    for (const TYrexSpectrum *spectrum : item->spectra()) {
        QByteArray bytes;
        TDataStream stream(&bytes, QIODevice::WriteOnly);
        spectrum->integrals().store(stream);
        saved.append(bytes);
    }
}

void TCmdYrexEditIntegralBase::restoreItem(TCanvasYrexSpectrum *item, int index)
{
    const QVector<QByteArray> &saved = fSaved.at(index);
    for (int i = 0; i < qMin(saved.size(), item->stack().count()); ++i) {
        TYrexIntegrationRegions &integrals = item->stack().at(i)->integrals();
        integrals.removeByMode(cAllModes);
        TDataStream stream(saved.at(i));
        integrals.load(stream);
    }
}

THistoryCommand *TCmdYrexEditIntegralBase::makeItemHistory(TCanvasYrexSpectrum *item)
{
    const TYrexSpectrum *spectrum = fPlaces.spectrum(item);
    const TYrexIntegrationRegion *region = spectrum ? spectrum->integrals().region(fRegionId) : nullptr;
    if (!region)
        return nullptr;
    THistoryCommand *entry = TYrexSpectrumListCommand::makeItemHistory(item);
    YrexIntegralHistory::tell(*entry, *item, fPlaces.index(item), *region, YrexPeakCopies::shownUnit(*item, *spectrum),
                              true);
    return entry;
}
