#include "plugin/TBasePlugin.h"

#include "log/TLogger.h"
#include "plugin/IConverter.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"

TBasePlugin::~TBasePlugin()
{
    qDeleteAll(fConverters);
}

void TBasePlugin::logRegistration(const IPluginInfo &info) const
{
    TLogger::printToLogger(
        logCategory(),
        tr("%1 %2 id:%3 has been registered").arg(info.pluginName(), info.version(), info.baseId().toString()));
}

void TBasePlugin::registered(IPluginHost *host)
{
    fHost = host;
    if (!Utils::Framework::instance)
        Utils::Framework::instance = host;
    logRegistration(*this);
    qDeleteAll(fConverters); // of a host that is gone
    fConverters.clear();
    registerConverters();
}

QVariant TBasePlugin::info(int key) const
{
    return key == cUiResourceKey ? QVariant(fUiResource) : QVariant();
}

void TBasePlugin::beginBusy()
{
    if (fHost && fHost->gui())
        fHost->gui()->setWaitCursor();
}

void TBasePlugin::endBusy()
{
    if (fHost && fHost->gui())
        fHost->gui()->restoreCursor();
}

void TBasePlugin::logMessage(const QString &text)
{
    TLogger::printToLogger(logCategory(), text, 2);
}

int TBasePlugin::importFile(const QString &fileName, const QString &filter, ICanvas *page)
{
    for (IConverter *converter : qAsConst(fConverters)) {
        if (converter->acceptsFilter(filter, true) && converter->acceptsFile(fileName, filter) &&
            converter->canImport(fileName))
            return converter->importFile(fileName, page);
    }
    return cConverterNotSupported;
}

QStringList TBasePlugin::importFilters() const
{
    QStringList filters;
    for (const IConverter *converter : fConverters) {
        const QStringList own = converter->importFilterList();
        if (!own.isEmpty())
            filters.append(own.first());
    }
    return filters;
}

QStringList TBasePlugin::exportFilters() const
{
    QStringList filters;
    for (const IConverter *converter : fConverters)
        filters += converter->exportFilterList();
    return filters;
}

int TBasePlugin::exportItems(const TCanvasItemList &items, const QString &fileName, const QString &filter)
{
    for (IConverter *converter : qAsConst(fConverters)) {
        if (converter->acceptsFilter(filter, false) && converter->canExport(items))
            return converter->exportItems(items, fileName);
    }
    return cConverterNotSupported;
}
