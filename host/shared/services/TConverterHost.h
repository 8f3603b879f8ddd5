#pragma once

#include "plugin/IConverterHost.h"

class IPluginHost;

/// Brings what converters ask for to the document and its history.
class TConverterHost : public IConverterHost
{
public:
    explicit TConverterHost(IPluginHost &host)
        : fHost(host)
    {
    }

    void commitImport(const TCanvasItemList &items, const QVariantMap &info,
                      const std::function<void(QByteArray &)> &titleWriter) override;
    QVariant request(int what, const QVariant &a, const QVariant &b, const QVariant &c) override;
    void scriptRequest(const QVariant &, const QVariant &) override {}

private:
    IPluginHost &fHost;
};
