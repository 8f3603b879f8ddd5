#include "TYrexPluginGui.h"

void TYrexPluginGui::registered(IPluginHost *host)
{
    init(host);
}

void TYrexPluginGui::init(IPluginHost *host)
{
    TYrexPlugin::registered(host);
}
