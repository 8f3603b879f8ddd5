#pragma once

#include <QtPlugin>

/// The data analysis plug-in, where the host has one. Nothing here is called yet; its presence alone is looked up.
class IDAPlugin
{
public:
    virtual ~IDAPlugin() = default;
};

#define cIDAPluginIID "com.dornveld.kelmora-qt.IDAPlugin/1.0"
Q_DECLARE_INTERFACE(IDAPlugin, cIDAPluginIID)
