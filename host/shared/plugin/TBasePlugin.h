#pragma once

#include "plugin/IPluginCanvasItem.h"
#include "plugin/IPluginConverter.h"
#include "plugin/IPluginEvent.h"
#include "plugin/IPluginInfo.h"
#include "plugin/IPluginReporting.h"
#include "plugin/IProgress.h"
#include "plugin/TEmptyPlugin.h"

/// What every plug-in has: identity, converters and the default answers to the host's interfaces.
class TBasePlugin : public TEmptyPlugin,
                    public IPluginInfo3,
                    public IPluginCanvasItem,
                    public IProgress,
                    public IPluginConverter,
                    public IPluginEvent,
                    public IPluginReporting
{
    Q_OBJECT
    Q_INTERFACES(IPluginInfo IPluginInfo2 IPluginInfo3 IPluginCanvasItem IProgress IPluginConverter IPluginEvent
                     IPluginReporting)

public:
    TBasePlugin() = default;
    ~TBasePlugin() override;

    QString pluginName() const override { return fName; }
    QUuid secondId() const override { return fSecondId; }
    QUuid baseId() const override { return fBaseId; }
    QString version() const override { return fVersion; }
    QDate date() const override { return fDate; }
    void registered(IPluginHost *host) override;
    void enable() override { fEnabled = true; }
    void disable() override { fEnabled = false; }
    QString aboutText() const override { return QString(); }
    bool firstCapability() const override { return fCapabilities & 1; }
    bool secondCapability() const override { return fCapabilities & 2; }
    int orderHint() const override { return fOrderHint; }
    QVariant info(int key) const override;

    TCanvasItem *createItem(int) override { return nullptr; }
    TPropertiesBag *createPropertiesBag(int) override { return nullptr; }
    TPropertiesBag *createMultiPropertiesBag(int, int, int) override { return nullptr; }
    TBaseTable *createTable(TTableProperties *, TCanvasItem *) override { return nullptr; }

    void beginBusy() override;
    void endBusy() override;
    void logMessage(const QString &text) override;

    int importFile(const QString &fileName, const QString &filter, ICanvas *page) override;
    QStringList importFilters() const override;
    QStringList exportFilters() const override;
    int exportItems(const TCanvasItemList &items, const QString &fileName, const QString &filter) override;
    QList<IConverter *> converters() const override { return fConverters; }

    bool filterEvent(QEvent *) override { return false; }
    void hostEvent(const QByteArray &) override {}
    QString tableReport(TTableProperties *, TCanvasItem *, const QString &) override { return QString(); }

    bool isEnabled() const { return fEnabled; }
    IPluginHost *host() const { return fHost; }

protected:
    virtual void registerConverters() {}
    /// The log category of the plug-in's messages.
    virtual QString logCategory() const { return fName; }
    void logRegistration(const IPluginInfo &info) const;

    IPluginHost *fHost = nullptr; // not owned
    QUuid fSecondId;
    QUuid fBaseId;
    QString fName;
    QString fVersion;
    QDate fDate;
    QString fUiResource;
    int fOrderHint = 200;
    QList<IConverter *> fConverters; // owned
    qint32 fCapabilities = 0;
    bool fEnabled = false;
};
