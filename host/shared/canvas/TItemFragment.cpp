#include "canvas/TItemFragment.h"

#include "canvas/TCanvasItem.h"
#include "canvas/TCanvasItemList.h"
#include "canvas/TDocument.h"
#include "canvas/TUnknownItem.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"
#include "utils/CommonUtils.h"

#include <memory>
#include <vector>

namespace {

constexpr int cMinItemSize = 4 + 16 + TDataStreamAdaptor::cHeaderSize; // type, id, empty block

} // namespace

QByteArray TItemFragment::store(const TCanvasItemList &items)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint32(items.size());
    for (ICanvasItem *entry : items) {
        const TCanvasItem *item = canvasItem(entry);
        stream << qint32(item->rtti()) << item->uniqueId();
        TDataStreamAdaptor block(stream);
        block.startStore();
        item->store(stream);
        block.endStore();
    }
    return bytes;
}

QList<TCanvasItem *> TItemFragment::load(const QByteArray &bytes, TKind kind)
{
    TDataStream stream(bytes);
    std::vector<std::unique_ptr<TCanvasItem>> items;
    QMap<QUuid, QUuid> copies;
    const int count = stream.readCount(cMinItemSize);
    for (int i = 0; i < count && stream.isGood(); ++i) {
        qint32 rtti = 0;
        QUuid id;
        stream >> rtti >> id;
        std::unique_ptr<TCanvasItem> item(TDocument::createItem(rtti));
        if (!item)
            item = std::make_unique<TUnknownItem>(rtti);
        TDataStreamAdaptor block(stream);
        if (block.hasData())
            item->load(stream);
        block.skipData();
        item->setUniqueId(Utils::Common::createUuid());
        item->setActive(false);
        item->setSelected(false);
        copies.insert(id, item->uniqueId());
        if (kind == cCopies)
            TCanvasItem::link(item.get(), TCanvasItem::cCopyRole, id);
        items.push_back(std::move(item));
    }
    QList<TCanvasItem *> loaded;
    if (!stream.isGood())
        return loaded;
    for (std::unique_ptr<TCanvasItem> &item : items) {
        item->followCopies(copies);
        loaded.append(item.release());
    }
    return loaded;
}
