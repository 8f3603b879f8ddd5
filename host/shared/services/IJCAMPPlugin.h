#pragma once

#include <QtPlugin>

class IConverter;

/// The host's plug-in for JCAMP-DX files, to which modules offer converters for the data blocks that they know.
class IJCAMPPlugin
{
public:
    virtual ~IJCAMPPlugin() = default;
    /// Takes over a converter; blocks are offered in the order of registration.
    virtual void registerConverter(IConverter *converter) = 0;
};

#define cIJCAMPPluginIID "com.dornveld.kelmora-qt.IJCAMPPlugin/1.0"
Q_DECLARE_INTERFACE(IJCAMPPlugin, cIJCAMPPluginIID)
