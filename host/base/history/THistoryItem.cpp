#include "history/THistoryItem.h"

#include <QObject>

THistoryItem *THistoryItem::getHistoryItemProperty(const QObject *wrapper)
{
    return wrapper ? wrapper->property("historyItem").value<THistoryItem *>() : nullptr;
}
