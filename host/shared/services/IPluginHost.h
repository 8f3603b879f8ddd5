#pragma once

#include <QVariant>

class IBatchHost;
class IConverterHost;
class IGuiHost;
class IProgressBar;
class IScriptHost;
class IScriptObjectFactory;
class QObject;
class QString;
class QUuid;
class TCanvasItemList;
class TCommandHistory;
class TDocument;
class TTableFactories;

/// The services of the host, as plug-ins see them.
class IPluginHost
{
public:
    virtual ~IPluginHost() = default;
    /// The plug-in with that base id, or null.
    virtual QObject *pluginByBaseId(const QUuid &id) const = 0;
    /// Takes over a factory; the first that makes a class name wins.
    virtual void registerScriptFactory(IScriptObjectFactory *factory) = 0;
    /// Publishes an object to scripts under a name; null clears it. Flag 1: the host owns the object.
    virtual void registerScriptObject(const QString &name, QObject *object, int flag) = 0;
    virtual TDocument *document() const = 0;
    /// The selection of the active window.
    virtual TCanvasItemList &itemList() = 0;
    virtual TCommandHistory &history() = 0;
    virtual IConverterHost *converterHost() = 0;
    /// Requests by number; invalid for one that the host does not know.
    virtual QVariant request(int what, const QVariant &a, const QVariant &b, const QVariant &c) = 0;
    /// Null in a program without windows.
    virtual IGuiHost *gui() = 0;
    /// Null in a program with windows, where the document is the user's.
    virtual IBatchHost *batch() { return nullptr; }
    /// Null where no scripts can be run.
    virtual IScriptHost *scripts() { return nullptr; }
    virtual IProgressBar *progress() = 0;
    /// Where plug-ins add what reads their items for tables on pages; null in a host without such tables.
    virtual TTableFactories *tables() { return nullptr; }
};

class IJCAMPPlugin;

namespace Utils {
namespace Framework {
/// The services of this process; null until a host or the first plug-in sets it.
extern IPluginHost *instance;
/// The host's JCAMP plug-in, or null without one.
IJCAMPPlugin *jcampPluginI();
} // namespace Framework
} // namespace Utils
