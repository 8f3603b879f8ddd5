#pragma once

#include <QStringList>
#include <QtPlugin>

class IConverter;

/// The host's plug-in for JCAMP-DX files, to which modules offer converters for the data blocks that they know.
class IJCAMPPlugin
{
public:
    virtual ~IJCAMPPlugin() = default;
    /// Takes over a converter, which is a TBaseJCAMPConverter as well; blocks are offered in the order of registration.
    virtual void registerConverter(IConverter *converter) = 0;
    /// Comment records that files to be written get behind the header of their first spectrum, one for each text.
    virtual void setExportComments(const QStringList &comments) = 0;
};

#define cIJCAMPPluginIID "com.dornveld.kelmora-qt.IJCAMPPlugin/1.0"
Q_DECLARE_INTERFACE(IJCAMPPlugin, cIJCAMPPluginIID)
