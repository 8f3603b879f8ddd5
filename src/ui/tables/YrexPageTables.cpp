#include "YrexPageTables.h"

#include "TCanvasYrexSpectrum.h"
#include "TSpectrumParamsTableModel.h"
#include "TYrexIntegralsSpectraModel.h"
#include "TYrexIntegralsTableModel.h"
#include "TYrexPeaksTableModel.h"
#include "tables/TTableContent.h"
#include "tables/TTableFactories.h"
#include "tables/TTableProperties.h"
#include "widgets/TBaseTable.h"

#include <QCoreApplication>
#include <memory>

namespace {

struct TTableKind
{
    QString fName; // of the table in the settings
    QString fTitle;
    std::unique_ptr<TBaseTableViewModel> fModel; // null for no such table
};

QString text(const char *source)
{
    return QCoreApplication::translate("YrexPageTables", source);
}

TTableKind tableOf(IPluginHost &host, const TTableProperties &properties, TCanvasItem *item)
{
    TCanvasYrexSpectrum *spectra = yrexItem(item);
    TTableKind kind;
    if (!spectra || !spectra->currentSpectrum() || !properties.isKnown())
        return kind;
    if (properties.table() == YrexPageTables::cPeaks) {
        auto model = std::make_unique<TYrexPeaksTableModel>(host);
        model->setAllSpectra(properties.option(YrexPageTables::cAllSpectra).toBool());
        model->read(spectra);
        kind = {QStringLiteral("Peaks"), text("Peaks"), std::move(model)};
    } else if (properties.table() == YrexPageTables::cIntegrals) {
        auto model = std::make_unique<TYrexIntegralsTableModel>(host);
        model->read(spectra);
        kind = {QStringLiteral("Integrals"), text("Integrals"), std::move(model)};
    } else if (properties.table() == YrexPageTables::cIntegralsOfSpectra) {
        auto model = std::make_unique<TYrexIntegralsSpectraModel>();
        model->read(spectra);
        model->setRatio(properties.option(YrexPageTables::cOver).toInt(),
                        properties.option(YrexPageTables::cUnder).toInt());
        kind = {QStringLiteral("IntegralsOfSpectra"), text("Integrals"), std::move(model)};
    } else if (properties.table() == YrexPageTables::cParameters) {
        auto model = std::make_unique<TSpectrumParamsTableModel>(host);
        QSet<int> ids;
        for (const QVariant &id : properties.option(YrexPageTables::cIds).toList())
            ids.insert(id.toInt());
        model->setOnly(ids);
        model->read(spectra);
        kind = {QStringLiteral("Parameters"), text("Parameters"), std::move(model)};
    }
    if (kind.fModel)
        kind.fModel->setDecimals(properties.decimals());
    return kind;
}

} // namespace

void YrexPageTables::addTo(TTableFactories &factories, IPluginHost &host)
{
    const auto read = [&host](const TTableProperties &properties, TCanvasItem *item, TTableContent &content) {
        const TTableKind kind = tableOf(host, properties, item);
        if (!kind.fModel)
            return false;
        content = TTableContent::ofModel(*kind.fModel, properties);
        content.fTitle = kind.fTitle;
        return true;
    };
    for (const char *table : {cPeaks, cIntegrals, cIntegralsOfSpectra, cParameters})
        factories.add(table, read);
}

TBaseTable *YrexPageTables::createTable(IPluginHost &host, const TTableProperties &properties, TCanvasItem *item)
{
    TTableKind kind = tableOf(host, properties, item);
    if (!kind.fModel)
        return nullptr;
    TBaseTableViewModel *model = kind.fModel.release();
    auto *table = new TBaseTable(kind.fName, model);
    model->setParent(table);
    return table;
}
