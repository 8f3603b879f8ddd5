#pragma once

#include <QDate>
#include <QString>
#include <QUuid>
#include <QVariant>
#include <QtPlugin>

class IPluginHost;

/// Who a plug-in is, and its life: registered once, then enabled and disabled any number of times.
class IPluginInfo
{
public:
    virtual ~IPluginInfo() = default;
    virtual QString pluginName() const = 0;
    virtual QUuid secondId() const = 0;
    /// The id under which other plug-ins find this one.
    virtual QUuid baseId() const = 0;
    virtual QString version() const = 0;
    virtual QDate date() const = 0;
    virtual void registered(IPluginHost *host) = 0;
    virtual void enable() = 0;
    virtual void disable() = 0;
};

class IPluginInfo2 : public IPluginInfo
{
public:
    virtual QString aboutText() const = 0;
    virtual bool firstCapability() const = 0;
    virtual bool secondCapability() const = 0;
};

class IPluginInfo3 : public IPluginInfo2
{
public:
    static constexpr int cUiResourceKey = 1; // the resource path of the menu mark-up

    /// Plug-ins are registered in the order of this value.
    virtual int orderHint() const = 0;
    /// Invalid for a key that the plug-in does not know.
    virtual QVariant info(int key) const = 0;
};

#define cIPluginInfoIID "com.dornveld.kelmora-qt.IPluginInfo/1.0"
#define cIPluginInfo2IID "com.dornveld.kelmora-qt.IPluginInfo/2.0"
#define cIPluginInfo3IID "com.dornveld.kelmora-qt.IPluginInfo/3.0"

Q_DECLARE_INTERFACE(IPluginInfo, cIPluginInfoIID)
Q_DECLARE_INTERFACE(IPluginInfo2, cIPluginInfo2IID)
Q_DECLARE_INTERFACE(IPluginInfo3, cIPluginInfo3IID)
