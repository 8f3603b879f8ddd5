#pragma once

#include "canvas/TCanvasItemList.h"
#include "services/IBatchHost.h"
#include "services/IPluginHost.h"
#include "services/IScriptHost.h"
#include "services/TConverterHost.h"
#include "services/TPluginLoader.h"
#include "tables/TTableFactories.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

class TDocument;
class TImportDriver;

/// The host: plug-ins, the open document, the selection and what scripts may reach. Programs with windows add theirs.
class TKelmoraHost : public IPluginHost, public IBatchHost, public IScriptHost
{
public:
    TKelmoraHost();
    ~TKelmoraHost() override;
    TKelmoraHost(const TKelmoraHost &) = delete;
    TKelmoraHost &operator=(const TKelmoraHost &) = delete;

    /// Adds a plug-in that is part of the program, before the start. The host takes it over.
    void addBuiltIn(QObject *plugin) { fLoader.addBuiltIn(plugin); }
    /// Loads, registers and enables the plug-ins of the folders.
    void start(const QStringList &folders = TPluginLoader::searchPath());
    void setGui(IGuiHost *gui) { fGui = gui; }
    void setProgress(IProgressBar *progress) { fProgress = progress; }
    void setDocument(std::unique_ptr<TDocument> document) override;
    /// The document of the active window, which its window owns; null goes back to the host's own.
    void setActiveDocument(TDocument *document);

    QList<QObject *> plugins() const override { return fLoader.plugins(); }
    const TPluginLoader &loader() const { return fLoader; }
    const TImportDriver &importDriver() const override { return *fDriver; }
    QStringList scriptClassNames() const;
    /// How a program with windows opens documents for scripts, an empty path for a new one; false with the reason.
    using TOpener = std::function<bool(const QString &path, QString *error)>;
    void setDocumentOpener(const TOpener &opener) { fOpener = opener; }
    void installScripts(QScriptEngine &engine) override;
    QScriptValue wrapItem(QScriptEngine &engine, TCanvasItem *item) override;
    QVector<TStepKind> stepKinds() const override;
    bool openDocument(const QString &path, QString *error) override;
    void newDocument() override;
    QObject *scriptObject(const QString &name) const;

    QObject *pluginByBaseId(const QUuid &id) const override;
    void registerScriptFactory(IScriptObjectFactory *factory) override;
    void registerScriptObject(const QString &name, QObject *object, int flag) override;
    TDocument *document() const override { return fActiveDocument ? fActiveDocument : fDocument.get(); }
    TCanvasItemList &itemList() override { return fSelection; }
    TCommandHistory &history() override;
    IConverterHost *converterHost() override { return &fConverterHost; }
    QVariant request(int, const QVariant &, const QVariant &, const QVariant &) override { return QVariant(); }
    IGuiHost *gui() override { return fGui; }
    IBatchHost *batch() override { return fGui ? nullptr : this; }
    IScriptHost *scripts() override { return this; }
    IProgressBar *progress() override { return fProgress; }
    TTableFactories *tables() override { return &fTables; }

private:
    struct TScriptEntry
    {
        QObject *fObject = nullptr;
        bool fOwned = false;
    };

    TPluginLoader fLoader; // first, so that the libraries go last
    TTableFactories fTables;
    TConverterHost fConverterHost;
    std::unique_ptr<TDocument> fDocument;
    TDocument *fActiveDocument = nullptr; // of a window
    std::unique_ptr<TImportDriver> fDriver;
    TCanvasItemList fSelection;
    std::vector<std::unique_ptr<IScriptObjectFactory>> fFactories;
    QHash<QString, TScriptEntry> fScriptObjects;
    TOpener fOpener;
    IGuiHost *fGui = nullptr;
    IProgressBar *fProgress = nullptr;
};
