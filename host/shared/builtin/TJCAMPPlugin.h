#pragma once

#include "plugin/TBasePlugin.h"
#include "services/IJCAMPPlugin.h"

class TJCAMPFileConverter;

/// The host's own plug-in for JCAMP-DX: it reads and writes the files, modules know what stands in their blocks.
class TJCAMPPlugin : public TBasePlugin, public IJCAMPPlugin
{
    Q_OBJECT
    Q_INTERFACES(IJCAMPPlugin)

public:
    TJCAMPPlugin();

    void registerConverter(IConverter *converter) override;
    void setExportComments(const QStringList &comments) override;

protected:
    void registerConverters() override;

private:
    TJCAMPFileConverter *fFileConverter = nullptr; // owned as one of fConverters
};
