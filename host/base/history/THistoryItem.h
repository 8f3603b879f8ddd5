#pragma once

#include <QByteArray>
#include <QHash>
#include <QUuid>
#include <QVariant>
#include <memory>

class QObject;

/// Something that history entries speak of: an item of a document.
class THistoryItem
{
public:
    THistoryItem() = default;
    THistoryItem(const THistoryItem &) = delete;
    THistoryItem &operator=(const THistoryItem &) = delete;
    virtual ~THistoryItem() = default;

    virtual QUuid historyId() const = 0;
    virtual QString historyName() const = 0;
    /// Facts that say more closely what was meant: "itemId", "specIndex".
    void setProperty(const QByteArray &name, const QVariant &value) { fProperties.insert(name, value); }
    QVariant property(const QByteArray &name) const { return fProperties.value(name); }

    /// The history item that a script wrapper stands for, or null.
    static THistoryItem *getHistoryItemProperty(const QObject *wrapper);

    /// Expires when the item goes; for those who keep a pointer.
    std::weak_ptr<void> life() const { return fLife; }

private:
    QHash<QByteArray, QVariant> fProperties;
    std::shared_ptr<void> fLife = std::make_shared<char>();
};

Q_DECLARE_METATYPE(THistoryItem *)
