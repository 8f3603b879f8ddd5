#include "history/THistoryCommand.h"

#include "history/THistoryItem.h"
#include "utils/CommonUtils.h"

#include <QSet>
#include <algorithm>

THistoryCommand::THistoryCommand(const QString &description, THistoryItem *item, const QString &text)
    : fDescription(description)
    , fText(text)
    , fItem(item)
    , fLife(item ? item->life() : std::weak_ptr<void>())
    , fItemId(item ? item->historyId() : QUuid())
    , fItemName(item ? item->historyName() : QString())
    , fTime(Utils::Common::now())
{
}

void THistoryCommand::addParam(const QString &name, const QVariant &value, const QString &text)
{
    fParams.append({name, value, QVariant(), text});
}

void THistoryCommand::addChange(const QString &name, const QVariant &value, const QVariant &oldValue)
{
    fParams.append({name, value, oldValue, QString()});
}

void THistoryCommand::addParamMapDiff(const QString &name, const QVariantMap &now, const QVariantMap &before,
                                      const QString &text)
{
    QStringList keys = now.keys() + before.keys();
    keys.removeDuplicates();
    std::sort(keys.begin(), keys.end());
    for (const QString &key : qAsConst(keys)) {
        const QVariant value = now.value(key);
        const QVariant old = before.value(key);
        if (value != old)
            fParams.append({name + ": " + key, value, old, text});
    }
}
