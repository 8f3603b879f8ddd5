#include "exchange/TScratchImport.h"

#include "canvas/TCanvasItem.h"
#include "contexts/IStackedItemCtx.h"
#include "utils/CommonUtils.h"

TScratchImport::TScratchImport(const TImportDriver &driver, const QString &path, const QString &format)
    : fPath(path)
    , fUsual(IConverterHost::current())
{
    IConverterHost::setCurrent(this);
    fResult = driver.import(path, &fPage, format);
    IConverterHost::setCurrent(fUsual);
    TCanvasItemList kept;
    for (ICanvasItem *entry : qAsConst(fResult.fItems)) {
        TCanvasItem *item = canvasItem(entry);
        if (fPage.items().contains(item))
            kept.append(item);
        else
            delete item; // of a read that failed
    }
    fResult.fItems = kept;
}

bool TScratchImport::isOk() const
{
    return Utils::Common::has_no_error(fResult.fCode);
}

void TScratchImport::commitImport(const TCanvasItemList &items, const QVariantMap &info,
                                  const std::function<void(QByteArray &)> &)
{
    fProvenance = info;
    for (ICanvasItem *entry : items) {
        TCanvasItem *item = canvasItem(entry);
        item->provenance() = info;
        item->setRect(fPage.offeredRect(item));
        fPage.insertItem(item);
    }
}

QVariant TScratchImport::request(int what, const QVariant &a, const QVariant &b, const QVariant &c)
{
    return fUsual ? fUsual->request(what, a, b, c) : QVariant();
}

int TScratchImport::spectrumCount() const
{
    int count = 0;
    for (ICanvasItem *item : fResult.fItems) {
        const IStackedItemCtx *stack = canvasItem(item)->stackedContext();
        count += stack ? stack->count() : 1;
    }
    return count;
}

TCanvasItemList TScratchImport::take()
{
    TCanvasItemList items;
    items.swap(fResult.fItems);
    for (ICanvasItem *item : qAsConst(items))
        fPage.takeItem(canvasItem(item));
    return items;
}
