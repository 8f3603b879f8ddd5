#include "services/IPluginHost.h"

#include "consts/Consts.h"
#include "services/IJCAMPPlugin.h"

#include <QObject>

namespace Utils {
namespace Framework {

IPluginHost *instance = nullptr;

IJCAMPPlugin *jcampPluginI()
{
    QObject *plugin = instance ? instance->pluginByBaseId(Consts::Common::jcampPluginBaseID) : nullptr;
    return plugin ? qobject_cast<IJCAMPPlugin *>(plugin) : nullptr;
}

} // namespace Framework
} // namespace Utils
