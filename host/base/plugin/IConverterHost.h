#pragma once

#include "canvas/TCanvasItemList.h"

#include <QVariantMap>
#include <functional>

class QString;

/// What converters ask of the program that drives them.
class IConverterHost
{
public:
    virtual ~IConverterHost() = default;

    /// Makes an import undoable: puts the items on their page through a command that carries `info` (source and
    /// checksums) and that `titleWriter` names.
    virtual void commitImport(const TCanvasItemList &items, const QVariantMap &info,
                              const std::function<void(QByteArray &)> &titleWriter) = 0;
    virtual QVariant request(int what, const QVariant &a, const QVariant &b, const QVariant &c) = 0;
    virtual void scriptRequest(const QVariant &a, const QVariant &b) = 0;

    /// The host of this process; null in a plain driver, where imports are simply not recorded.
    static IConverterHost *current();
    static void setCurrent(IConverterHost *host);
};
