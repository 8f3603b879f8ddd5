#include "commands/TScriptStep.h"

#include <QFileInfo>

namespace {

void place(QVariant &value, const QList<QUuid> &ids)
{
    if (value.userType() == qMetaTypeId<TScriptItem>()) {
        auto item = value.value<TScriptItem>();
        item.fPlace = ids.indexOf(item.fId);
        value = QVariant::fromValue(item);
    } else if (value.userType() == QMetaType::QVariantList) {
        QVariantList list = value.toList();
        for (QVariant &entry : list)
            place(entry, ids);
        value = list;
    } else if (value.userType() == QMetaType::QVariantMap) {
        QVariantMap map = value.toMap();
        for (QVariant &entry : map)
            place(entry, ids);
        value = map;
    }
}

} // namespace

TScriptStep TScriptStep::function(const QString &name, const QVariantList &arguments)
{
    TScriptStep step(name);
    step.fIsFunction = true;
    for (const QVariant &argument : arguments)
        step.with(QString(), argument);
    return step;
}

TScriptStep &TScriptStep::on(const TCanvasItemList &items)
{
    for (const ICanvasItem *item : items) {
        if (item)
            fItems.append({item->uniqueId(), -1});
    }
    return *this;
}

TScriptStep &TScriptStep::with(const QString &name, const QVariant &value)
{
    fArguments.append({name, value});
    return *this;
}

QVariantMap TScriptStep::rect(const QRectF &rect)
{
    return {{"x", rect.x()}, {"y", rect.y()}, {"width", rect.width()}, {"height", rect.height()}};
}

QVariant TScriptStep::item(const ICanvasItem *item)
{
    return item ? QVariant::fromValue(TScriptItem{item->uniqueId(), -1}) : QVariant();
}

QVariant TScriptStep::path(const QString &path)
{
    return QVariant::fromValue(TScriptPath{QFileInfo(path).absoluteFilePath()});
}

void TScriptStep::setPlaces(const QList<QUuid> &itemsOfDocument)
{
    for (TScriptItem &item : fItems)
        item.fPlace = itemsOfDocument.indexOf(item.fId);
    for (TArgument &argument : fArguments)
        place(argument.second, itemsOfDocument);
}
