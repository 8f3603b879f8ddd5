#include "TYrexPlugin.h"

#include "T1DYrexPlot.h"
#include "TASCIIYrexConverter.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdEditYrexArrayedData.h"
#include "TCmdYrexArrayedFromSelection.h"
#include "TCmdYrexEditOneParam.h"
#include "TCmdYrexEditParameterTemplates.h"
#include "TCmdYrexInsert.h"
#include "TCmdYrexSeriesValues.h"
#include "TDAYrexItemCtx.h"
#include "TJCAMPYrexConverter.h"
#include "TMultiYrexSpectrumPropertiesBag.h"
#include "TYrexCommandLine.h"
#include "TYrexCompareItems.h"
#include "TYrexDragAndDropHandler.h"
#include "TYrexGalacticSpcConverter.h"
#include "TYrexOmnicSpaConverter.h"
#include "TYrexOpusConverter.h"
#include "TYrexParamsParsers.h"
#include "TYrexPluginObjectFactory.h"
#include "TYrexPluginWrapper.h"
#include "TYrexSERSBTConverter.h"
#include "TYrexSPConverter.h"
#include "TYrexUnitSetting.h"
#include "YrexGathering.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "commands/TCmdCreateItem.h"
#include "commands/TCmdList.h"
#include "consts/Consts.h"
#include "contexts/TStackedSpectrumItemCtx.h"
#include "params/TParamsParser.h"
#include "params/TParamsParsers.h"
#include "plugin/IDAPlugin.h"
#include "plugin/IDrawingTools.h"
#include "services/IJCAMPPlugin.h"
#include "services/IPluginHost.h"
#include "settings/TDefaultsIni.h"
#include "tables/TCanvasTable.h"

#include <QPointer>
#include <algorithm>

namespace {

constexpr int cFactoryCount = 3; // one for each engine that a host keeps: console, files, menu entries
constexpr double cDefaultStackAngle = 15.0;
constexpr char cStackAngleKey[] = "Zarnu/Stack/Angle";
constexpr char cOneStackPerYUnitKey[] = "Zarnu/Stack/OneStackPerYUnit";

QPointer<TYrexPlugin> gInstance;

} // namespace

TYrexPlugin *yrexPluginInstance()
{
    return gInstance;
}

TYrexPlugin::TYrexPlugin()
{
    if (!gInstance)
        gInstance = this;
    setObjectName("zarnu");
    fName = "Zarnu";
    fVersion = "1.6";
    fDate = QDate::fromString("2025-05-21", Qt::ISODate);
    fBaseId = Consts::Common::yrexPluginBaseID;
    fSecondId = Consts::Common::yrexPluginSecondID;
    fUiResource = ":/ui/YrexPlugin.mui";
    fOrderHint = 7;
    fCapabilities = 3;
    const TDefaultsIni settings;
    fStackAngle = settings.value(cStackAngleKey, cDefaultStackAngle).toDouble();
    fOneStackPerYUnit = settings.value(cOneStackPerYUnitKey, true).toBool();
    fDragAndDrop = std::make_unique<TYrexDragAndDropHandler>();
}

TYrexPlugin::~TYrexPlugin()
{
    if (IYrexItemFactory::current() == this)
        IYrexItemFactory::setCurrent(nullptr);
}

void TYrexPlugin::registered(IPluginHost *host)
{
    IYrexItemFactory::setCurrent(this);
    TBasePluginEx::registered(host);
    if (!host)
        return;
    fDrawingTools = qobject_cast<IDrawingTools *>(host->pluginByBaseId(Consts::Common::drawPluginBaseID));
    fDAPlugin = qobject_cast<IDAPlugin *>(host->pluginByBaseId(Consts::Common::daPluginBaseID));
    logRegistration(*qobject_cast<IPluginInfo *>(this));
    for (int i = 0; i < cFactoryCount; ++i)
        host->registerScriptFactory(new TYrexPluginObjectFactory);
    host->registerScriptObject(objectName(), nullptr, 0);
}

void TYrexPlugin::registerConverters()
{
    if (IJCAMPPlugin *jcamp = Utils::Framework::jcampPluginI())
        jcamp->registerConverter(new TJCAMPYrexConverter(this));
    // files are offered in this order, so the converter that accepts nearly anything stands last
    fConverters.append(new TYrexGalacticSpcConverter(this));
    fConverters.append(new TYrexOmnicSpaConverter(this));
    fConverters.append(new TYrexSPConverter(this));
    fConverters.append(new TYrexOpusConverter(this));
    fConverters.append(new TYrexSERSBTConverter(this));
    fConverters.append(new TASCIIYrexConverter(this));
}

void TYrexPlugin::enable()
{
    TBasePluginEx::enable();
    constexpr int cHostOwns = 1;
    if (fHost)
        fHost->registerScriptObject(objectName(), new TYrexPluginWrapper(this), cHostOwns);
}

void TYrexPlugin::disable()
{
    TBasePluginEx::disable();
    if (fHost)
        fHost->registerScriptObject(objectName(), nullptr, 0);
}

TCanvasItem *TYrexPlugin::createItem(int rtti)
{
    return rtti == TCanvasYrexSpectrum::cRtti ? new TCanvasYrexSpectrum({}, nullptr, this) : nullptr;
}

ICanvasItem *TYrexPlugin::createSpectrumItem(const TYrexSpectrumList &spectra, ICanvas *parent)
{
    auto *item = new TCanvasYrexSpectrum(spectra, dynamic_cast<TPage *>(parent), this);
    if (item->isStacked() && item->activeYrexPlot())
        item->activeYrexPlot()->stackedProperties().setAngle(fStackAngle);
    return item;
}

void TYrexPlugin::addSpectra(ICanvasItem *item, const TYrexSpectrumList &spectra)
{
    TCanvasYrexSpectrum *spectrumItem = yrexItem(item);
    if (!spectrumItem) {
        qDeleteAll(spectra);
        return;
    }
    spectrumItem->addSpectra(spectra);
    spectrumItem->dataObj()->giveFileNumbers(); // each block of a file was read as if it were alone
}

TPropertiesBag *TYrexPlugin::createPropertiesBag(int rtti)
{
    return rtti == TYrexSpectrumPropertiesBag::cItemType ? new TYrexSpectrumPropertiesBag : nullptr;
}

TPropertiesBag *TYrexPlugin::createMultiPropertiesBag(int rtti, int, int)
{
    return rtti == TYrexSpectrumPropertiesBag::cItemType ? new TMultiYrexSpectrumPropertiesBag : nullptr;
}

void TYrexPlugin::hostEvent(const QByteArray &name)
{
    if (name != Consts::Events::cDocLoaded || !fHost || !fHost->document())
        return;
    for (ICanvasItem *item : fHost->document()->items().getByRtti(TCanvasTable::cRtti))
        canvasItem(item)->update();
}

void TYrexPlugin::setStackSettings(double angle, bool oneStackPerYUnit)
{
    fStackAngle = angle;
    fOneStackPerYUnit = oneStackPerYUnit;
    TDefaultsIni settings;
    settings.setValue(cStackAngleKey, angle);
    settings.setValue(cOneStackPerYUnitKey, oneStackPerYUnit);
}

TCanvasItem *TYrexPlugin::stackItems(TPage *, TCanvasItem *item, TCmdList *&commands, bool)
{
    constexpr bool cStacked = true;
    constexpr bool cForceNewPage = false;
    commands = nullptr;
    auto command =
        std::make_unique<TCmdYrexArrayedFromSelection>(TCanvasItemList{item}, fHost ? fHost->document() : nullptr, this,
                                                       cStacked, fStackAngle, fOneStackPerYUnit, cForceNewPage);
    if (command->isVoid())
        return nullptr;
    TCanvasItem *first = command->newItems().first();
    commands = new TCmdList(command->description());
    commands->append(command.release());
    return first;
}

TCommand *TYrexPlugin::stackCommand(const TCanvasItemList &items, TDocument *document, bool stacked)
{
    constexpr bool cForceNewPage = true;
    auto command = std::make_unique<TCmdYrexArrayedFromSelection>(items, document, this, stacked, fStackAngle,
                                                                  fOneStackPerYUnit, cForceNewPage);
    return command->isVoid() ? nullptr : command.release();
}

TCommand *TYrexPlugin::insertCommand(TCanvasItem *item, const TCanvasItemList &from)
{
    TCanvasYrexSpectrum *target = yrexItem(item);
    if (!target || !target->activeYrexPlot() || !(fDragAndDrop->acceptItems(item, from)))
        return nullptr;
    TYrexSpectrumList clones;
    for (ICanvasItem *entry : from)
        clones += YrexGathering::copiesOf(*yrexItem(entry));
    auto *command = new TCmdYrexInsert(target, clones, TCmdYrexInsert::cAtEnd, stackedMode);
    command->setSources(from);
    return command;
}

TCommand *TYrexPlugin::splitByClassCommand(TCanvasItem *item, TDocument *document)
{
    const TCanvasYrexSpectrum *source = yrexItem(item);
    if (!source)
        return nullptr;
    const auto groups = source->stack().classGroups(false);
    if (groups.size() < 2)
        return nullptr;
    auto *list = new TCmdList(tr("Split by Class"));
    list->setScriptStep(TScriptStep("splitByClass").on({item}));
    for (const TYrexStack::TGroup &group : groups) {
        TYrexSpectrumList clones;
        for (const TYrexSpectrum *spectrum : group.second)
            clones.append(YrexGathering::copyOf(*spectrum));
        auto *part = new TCanvasYrexSpectrum(clones, nullptr, this);
        list->append(new TCmdCreateItem(TCmdCreateItem::cOther, {part}, document, nullptr, source->provenance(),
                                        TCmdCreateItem::cOnNewPage));
    }
    return list;
}

TCommand *TYrexPlugin::seriesValuesCommand(const TCanvasItemList &items, const QMap<int, double> &values)
{
    return values.isEmpty() ? nullptr : new TCmdYrexSeriesValues(items, values);
}

QObject *TYrexPlugin::tableSettings(TTableProperties *, TCanvasItem *)
{
    return nullptr;
}

QString TYrexPlugin::tableReport(TTableProperties *properties, TCanvasItem *item, const QString &format)
{
    return TBasePluginEx::tableReport(properties, item, format);
}

IDAItemCtx *TYrexPlugin::daContext(TCanvasItem *item)
{
    const TCanvasYrexSpectrum *spectrumItem = yrexItem(item);
    return spectrumItem ? spectrumItem->daContext() : nullptr;
}

TCommand *TYrexPlugin::editArrayedDataCommand(const TCanvasItemList &items, const QVariantMap &map)
{
    TCmdEditYrexArrayedData::TValues values;
    for (auto it = map.constBegin(); it != map.constEnd(); ++it) {
        bool isKey = false;
        const int key = it.key().toInt(&isKey);
        if (isKey)
            values.insert(key, it.value());
    }
    return new TCmdEditYrexArrayedData(items, values);
}

TCommand *TYrexPlugin::editParamCommand(const TCanvasItemList &items, int id, const QString &value, int index)
{
    const bool hasAny =
        std::any_of(items.begin(), items.end(), [](ICanvasItem *item) { return yrexItem(item) != nullptr; });
    if (!hasAny)
        return nullptr;
    if (index >= 0)
        return new TCmdYrexEditOneParam(items, id, value, index);
    return new TCmdYrexEditOneParam(items, id, value, true, false);
}

TCommand *TYrexPlugin::editTemplatesCommand(const TCanvasItemList &items, const TSpectrumParamsTemplate &templates)
{
    const bool hasAny =
        std::any_of(items.begin(), items.end(), [](ICanvasItem *item) { return yrexItem(item) != nullptr; });
    return hasAny ? new TCmdYrexEditParameterTemplates(items, templates) : nullptr;
}

const QObject *TYrexPlugin::paramsDescriptor() const
{
    static const QObject cDescriptor;
    return &cDescriptor;
}

QVariantMap TYrexPlugin::paramsAsMap(TCanvasItem *item) const
{
    const TCanvasYrexSpectrum *spectrumItem = yrexItem(item);
    const TYrexSpectrum *spectrum = spectrumItem ? spectrumItem->currentSpectrum() : nullptr;
    return spectrum ? spectrum->paramsBundle().toVariantMap() : QVariantMap();
}

TSpectrumParamsTemplate TYrexPlugin::paramsTemplate(TCanvasItem *item) const
{
    const TCanvasYrexSpectrum *spectrumItem = yrexItem(item);
    const TYrexSpectrum *spectrum = spectrumItem ? spectrumItem->currentSpectrum() : nullptr;
    const TParamsParser *parser = spectrum ? yrexParamsParsers().value(spectrum->fileFormat()) : nullptr;
    return parser ? parser->templates() : TSpectrumParamsTemplate();
}

ISpectrumItemCtx *TYrexPlugin::spectrumContext(TCanvasItem *item)
{
    TCanvasYrexSpectrum *spectrumItem = yrexItem(item);
    if (!spectrumItem)
        return nullptr;
    return new TStackedSpectrumItemCtx<TYrexSpectrumList>(spectrumItem, &spectrumItem->stack(),
                                                          spectrumItem->activePlot());
}

IStackedItemCtx *TYrexPlugin::stackedContext(TCanvasItem *item)
{
    TCanvasYrexSpectrum *spectrumItem = yrexItem(item);
    return spectrumItem ? spectrumItem->stackedContext() : nullptr;
}

void TYrexPlugin::adjustStackedItems(const TCanvasItemList &) {}

int TYrexPlugin::availableFlags() const
{
    return TYrexCompareItems(nullptr).availableFlags();
}

TCanvasItem *TYrexPlugin::compare(const TCanvasItemList &items, int flags)
{
    return TYrexCompareItems(this).compare(items, flags);
}

QList<TConsoleCommand> TYrexPlugin::commands() const
{
    return TYrexCommandLine::commandList();
}

int TYrexPlugin::run(const QString &name, const QStringList &arguments, IConsole &console)
{
    return TYrexCommandLine(fHost).run(name, arguments, console);
}

bool TYrexPlugin::hasUnknownUnits(TCanvasItem *item) const
{
    return TYrexUnitSetting::isUnknown(item);
}

QList<TUnitChoice> TYrexPlugin::unitChoices(TAxisDir axis) const
{
    return TYrexUnitSetting::choices(axis);
}

TUnitPair TYrexPlugin::guessUnits(TCanvasItem *item, const QString &fileName) const
{
    return TYrexUnitSetting::guess(item, fileName);
}

QList<TCommand *> TYrexPlugin::setUnitsCommands(const TCanvasItemList &items, const TUnitPair &units) const
{
    return TYrexUnitSetting::commands(items, units);
}

QString TYrexPlugin::horzUnitOf(TCanvasItem *item) const
{
    const TCanvasYrexSpectrum *spectra = yrexItem(item);
    return spectra ? YrexGathering::horzUnitOf(*spectra) : QString();
}

TCanvasItem *TYrexPlugin::gather(const TCanvasItemList &items) const
{
    return YrexGathering::gather(items);
}

QVariant TYrexPlugin::spectrumFact(TCanvasItem *item, int index, TFact fact) const
{
    const TCanvasYrexSpectrum *spectra = yrexItem(item);
    return spectra ? YrexGathering::spectrumFact(*spectra, index, fact) : QVariant();
}

void TYrexPlugin::nameSource(TCanvasItem *item, const QString &name) const
{
    if (TCanvasYrexSpectrum *spectra = yrexItem(item))
        YrexGathering::nameSource(*spectra, name);
}
