#include "services/TKelmoraHost.h"
#include "script/steps/HostSteps.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TLoadReport.h"
#include "plugin/IPluginCanvasItem.h"
#include "plugin/IPluginInfo.h"
#include "script/IScriptObjectFactory.h"
#include "script/ScriptUtils.h"
#include "services/TImportDriver.h"
#include "tables/HostTables.h"
#include "tables/TCanvasTable.h"

#include <QScriptEngine>

TKelmoraHost::TKelmoraHost()
    : fConverterHost(*this)
    , fDocument(new TDocument)
    , fDriver(new TImportDriver({}))
{
    Utils::Framework::instance = this;
    IConverterHost::setCurrent(&fConverterHost);
    HostTables::addTo(fTables);
    TCanvasTable::setReader([this](const TTableProperties &properties, TCanvasItem *item, TTableContent &content) {
        return fTables.fill(properties, item, content);
    });
    TDocument::setItemFactory([this](int rtti) -> TCanvasItem * {
        if (rtti == TCanvasTable::cRtti)
            return new TCanvasTable;
        for (QObject *plugin : fLoader.plugins()) {
            auto *factory = qobject_cast<IPluginCanvasItem *>(plugin);
            TCanvasItem *item = factory ? factory->createItem(rtti) : nullptr;
            if (item)
                return item;
        }
        return nullptr;
    });
}

TKelmoraHost::~TKelmoraHost()
{
    fDocument.reset(); // items are of the plug-ins' code
    TCanvasTable::setReader({});
    fTables.clear();
    fLoader.stop();
    for (const TScriptEntry &entry : qAsConst(fScriptObjects)) {
        if (entry.fOwned)
            delete entry.fObject;
    }
    fFactories.clear();
    TDocument::setItemFactory({});
    IConverterHost::setCurrent(nullptr);
    if (Utils::Framework::instance == this)
        Utils::Framework::instance = nullptr;
}

void TKelmoraHost::start(const QStringList &folders)
{
    fLoader.load(folders);
    fLoader.start(this);
    fDriver = std::make_unique<TImportDriver>(fLoader.plugins());
}

void TKelmoraHost::setDocument(std::unique_ptr<TDocument> document)
{
    fSelection.clear();
    fDocument = std::move(document);
}

void TKelmoraHost::setActiveDocument(TDocument *document)
{
    fSelection.clear();
    fActiveDocument = document;
}

TCommandHistory &TKelmoraHost::history()
{
    return document()->history();
}

QObject *TKelmoraHost::pluginByBaseId(const QUuid &id) const
{
    for (QObject *plugin : fLoader.plugins()) {
        const auto *info = qobject_cast<IPluginInfo *>(plugin);
        if (info && info->baseId() == id)
            return plugin;
    }
    return nullptr;
}

void TKelmoraHost::registerScriptFactory(IScriptObjectFactory *factory)
{
    fFactories.emplace_back(factory);
}

QStringList TKelmoraHost::scriptClassNames() const
{
    QStringList names;
    for (const auto &factory : fFactories)
        names += factory->classNames();
    names.removeDuplicates();
    return names;
}

void TKelmoraHost::registerScriptObject(const QString &name, QObject *object, int flag)
{
    const TScriptEntry old = fScriptObjects.take(name);
    if (old.fOwned && old.fObject != object)
        delete old.fObject;
    if (object)
        fScriptObjects.insert(name, {object, (flag & 1) != 0});
}

QObject *TKelmoraHost::scriptObject(const QString &name) const
{
    return fScriptObjects.value(name).fObject;
}

void TKelmoraHost::installScripts(QScriptEngine &engine)
{
    for (const auto &factory : fFactories)
        factory->install(&engine);
    for (auto it = fScriptObjects.constBegin(); it != fScriptObjects.constEnd(); ++it)
        engine.globalObject().setProperty(
            it.key(), engine.newQObject(it.value().fObject, QScriptEngine::QtOwnership, Utils::Script::cPublished));
}

QScriptValue TKelmoraHost::wrapItem(QScriptEngine &engine, TCanvasItem *item)
{
    for (const auto &factory : fFactories) {
        const QScriptValue object = factory->wrap(&engine, item);
        if (object.isObject())
            return object;
    }
    return engine.undefinedValue();
}

QVector<TStepKind> TKelmoraHost::stepKinds() const
{
    QVector<TStepKind> kinds = hostSteps();
    QSet<QString> names;
    for (const auto &factory : fFactories) {
        for (const TStepKind &kind : factory->stepKinds()) { // a module may register several factories of one kind
            if (!names.contains(kind.fName))
                kinds.append(kind);
            names.insert(kind.fName);
        }
    }
    return kinds;
}

bool TKelmoraHost::openDocument(const QString &path, QString *error)
{
    if (fOpener)
        return fOpener(path, error);
    auto document = std::make_unique<TDocument>();
    TLoadReport report;
    if (!document->loadFrom(path, report)) {
        if (error)
            *error = report.fError;
        return false;
    }
    setDocument(std::move(document));
    return true;
}

void TKelmoraHost::newDocument()
{
    if (fOpener)
        fOpener(QString(), nullptr);
    else
        setDocument(std::make_unique<TDocument>());
}
