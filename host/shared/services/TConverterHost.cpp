#include "services/TConverterHost.h"

#include "commands/TCmdCreateItem.h"
#include "commands/TCommandHistory.h"
#include "services/IPluginHost.h"

void TConverterHost::commitImport(const TCanvasItemList &items, const QVariantMap &info,
                                  const std::function<void(QByteArray &)> &titleWriter)
{
    if (items.isEmpty() || !fHost.document())
        return;
    constexpr int cItemsAreLaidOut = 1;
    auto *command =
        new TCmdCreateItem(TCmdCreateItem::cImport, items, fHost.document(), nullptr, info, cItemsAreLaidOut);
    QByteArray title;
    titleWriter(title);
    command->setDescription(QString::fromUtf8(title));
    fHost.history().push(command);
}

QVariant TConverterHost::request(int what, const QVariant &a, const QVariant &b, const QVariant &c)
{
    return fHost.request(what, a, b, c);
}
