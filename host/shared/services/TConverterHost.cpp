#include "services/TConverterHost.h"

#include "commands/TCmdCreateItem.h"
#include "commands/TCommandHistory.h"
#include "services/IPluginHost.h"
#include "services/TImportDriver.h"

void TConverterHost::commitImport(const TCanvasItemList &items, const QVariantMap &info,
                                  const std::function<void(QByteArray &)> &titleWriter)
{
    if (items.isEmpty() || !fHost.document())
        return;
    QVariantMap shown = info;
    if (!TImportDriver::shownName().isEmpty())
        shown.insert("Filename", TImportDriver::shownName());
    auto *command =
        new TCmdCreateItem(TCmdCreateItem::cImport, items, fHost.document(), nullptr, shown, TCmdCreateItem::cLaidOut);
    QByteArray title;
    titleWriter(title);
    command->setDescription(QString::fromUtf8(title));
    const QString path = info.value("Filename").toString();
    if (!path.isEmpty())
        command->setFile(path, TImportDriver::formatAskedFor());
    fHost.history().push(command);
}

QVariant TConverterHost::request(int what, const QVariant &a, const QVariant &b, const QVariant &c)
{
    return fHost.request(what, a, b, c);
}
