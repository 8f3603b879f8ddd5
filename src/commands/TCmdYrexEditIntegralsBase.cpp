#include "TCmdYrexEditIntegralsBase.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexRegionsAsMap.h"
#include "history/THistoryCommand.h"
#include "stream/TDataStream.h"

namespace {

QByteArray bytesOf(const TYrexIntegrationRegions &regions)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    regions.store(stream);
    return bytes;
}

} // namespace

TCmdYrexEditIntegralsBase::TCmdYrexEditIntegralsBase(const TCanvasItemList &items)
    : TYrexVoidUnlessChanged(tr("Edit Zarnu Integrals"), items)
{
}

void TCmdYrexEditIntegralsBase::setRegions(TCanvasYrexSpectrum *item, const TRegionsByIndex &regions)
{
    for (auto it = regions.constBegin(); it != regions.constEnd(); ++it) {
        const TYrexSpectrum *spectrum = item ? item->stack().at(it.key()) : nullptr;
        if (!spectrum)
            continue;
        fNewRegions[item].insert(it.key(), it.value());
        fOldRegions[item].insert(it.key(), spectrum->integrals());
    }
}

void TCmdYrexEditIntegralsBase::put(const TRegionsByIndex &regions, const TCanvasYrexSpectrum &item)
{
    for (auto it = regions.constBegin(); it != regions.constEnd(); ++it) {
        if (TYrexSpectrum *spectrum = item.stack().at(it.key()))
            spectrum->integrals().assign(it.value());
    }
}

void TCmdYrexEditIntegralsBase::doItem(TCanvasYrexSpectrum *item, int)
{
    const TRegionsByIndex regions = fNewRegions.value(item);
    for (auto it = regions.constBegin(); it != regions.constEnd(); ++it) {
        const TYrexSpectrum *spectrum = item->stack().at(it.key());
        if (spectrum && bytesOf(it.value()) != bytesOf(spectrum->integrals()))
            noteChange();
    }
    put(regions, *item);
    item->update();
}

void TCmdYrexEditIntegralsBase::undoItem(TCanvasYrexSpectrum *item, int)
{
    put(fOldRegions.value(item), *item);
    item->update();
}

THistoryCommand *TCmdYrexEditIntegralsBase::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexSpectrumCommand::makeItemHistory(item);
    const TRegionsByIndex regions = fNewRegions.value(item);
    for (auto it = regions.constBegin(); it != regions.constEnd(); ++it) {
        const QString name = item->isStacked() ? tr("#%1 Integrals").arg(it.key() + 1) : tr("Integrals");
        entry->addParam(name, it.value().count(), QString());
    }
    return entry;
}

TScriptStep TCmdYrexEditIntegralsBase::scriptStep() const
{
    const TCanvasYrexSpectrum *item = mainItem();
    QMap<int, QVariantMap> told;
    const TRegionsByIndex regions = fNewRegions.value(item);
    for (auto it = regions.constBegin(); it != regions.constEnd(); ++it) {
        if (const TYrexSpectrum *spectrum = item->stack().at(it.key()))
            told.insert(it.key(), YrexRegionsAsMap::told(it.value(), *spectrum));
    }
    return TScriptStep("setIntegrals").on(items()).with("spectra", TScriptStep::byIndex(told));
}
