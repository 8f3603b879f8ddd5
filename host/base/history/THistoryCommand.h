#pragma once

#include "history/THistoryParameter.h"

#include <QDateTime>
#include <QList>
#include <QObject>
#include <QUuid>
#include <QVariantMap>
#include <memory>

class THistoryItem;

/// One entry of the history: what was done to which item, when, with which parameters.
class THistoryCommand : public QObject
{
    Q_OBJECT

public:
    /// `item` is not owned and may be null; its id and name are kept.
    THistoryCommand(const QString &description, THistoryItem *item, const QString &text);

    void addParam(const QString &name, const QVariant &value, const QString &text);
    /// A parameter with what it was before.
    void addChange(const QString &name, const QVariant &value, const QVariant &oldValue);
    /// Adds a parameter for every key whose value differs between the maps, named "name: key"; none for equal maps.
    void addParamMapDiff(const QString &name, const QVariantMap &now, const QVariantMap &before, const QString &text);

    QString description() const { return fDescription; }
    void setDescription(const QString &description) { fDescription = description; }
    QString text() const { return fText; }
    /// Null once the item is gone.
    THistoryItem *item() const { return fLife.expired() ? nullptr : fItem; }
    QUuid itemId() const { return fItemId; }
    /// The name of the item when the entry was made.
    QString itemName() const { return fItemName; }
    const QList<THistoryParameter> &params() const { return fParams; }
    QDateTime time() const { return fTime; }
    /// Whether the command that it tells of is undone at present.
    bool isUndone() const { return fUndone; }
    void setUndone(bool undone) { fUndone = undone; }
    /// Whether it tells of a change of the view alone; lists may fold such entries.
    bool isViewOnly() const { return fViewOnly; }
    void setViewOnly(bool viewOnly) { fViewOnly = viewOnly; }

private:
    QString fDescription;
    QString fText;
    THistoryItem *fItem;
    std::weak_ptr<void> fLife; // of the item
    QUuid fItemId;
    QString fItemName;
    QList<THistoryParameter> fParams;
    QDateTime fTime;
    bool fUndone = false;
    bool fViewOnly = false;
};
