#pragma once

#include "TYrexPlugin.h"

/// What the host gets from the library: the module with its menus, docks and mouse modes on top.
class TYrexPluginGui : public TYrexPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.dornveld.kelmora-qt.IPluginInfo/3.0")

public:
    void registered(IPluginHost *host) override;

private:
    void init(IPluginHost *host);
};
