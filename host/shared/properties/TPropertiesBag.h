#pragma once

#include <QByteArray>
#include <QMap>
#include <QSet>
#include <QString>
#include <QVariantMap>
#include <memory>

class QWidget;
class TCanvasItem;
class TCanvasItemList;
class TDataStream;

/// The properties of an item as named fields, to be shown in a dialog, carried to other items, saved as defaults and
/// stored. Values are bool, int, double, text or QColor.
class TPropertiesBag
{
public:
    explicit TPropertiesBag(int itemType)
        : fItemType(itemType)
    {
    }
    virtual ~TPropertiesBag() = default;
    TPropertiesBag(const TPropertiesBag &) = delete;
    TPropertiesBag &operator=(const TPropertiesBag &) = delete;

    /// The number of this kind of bag in documents.
    int itemType() const { return fItemType; }
    /// An empty bag of the same kind.
    virtual std::unique_ptr<TPropertiesBag> create() const = 0;
    virtual bool isApplicable(const TCanvasItem &item) const = 0;
    /// Where the user's defaults for items like this one stand in the settings; empty: there are none.
    virtual QString settingsKey(const TCanvasItem &) const { return QString(); }
    /// Where the default of a field stands that goes for items of every kind; empty: with the others.
    virtual QString sharedSettingsKey(const QString &) const { return QString(); }
    /// The controls of a dialog; null for a bag without.
    virtual QWidget *createPage() { return nullptr; }

    /// Takes every field from an item; nothing is touched then.
    void fillFrom(const TCanvasItem &item);
    /// The same for several items: a field in which they differ is mixed.
    void fillFrom(const TCanvasItemList &items);
    /// Gives an item the fields that appliedFields names; nothing for an item of another kind.
    void applyTo(TCanvasItem &item) const;

    const QVariantMap &values() const { return fValues; }
    /// Of several items that differ the value of the first; invalid for an unknown field.
    QVariant value(const QString &key) const { return fValues.value(key); }
    /// An edit: the field is touched, and mixed no more.
    void setValue(const QString &key, const QVariant &value);
    bool isMixed(const QString &key) const { return fMixed.contains(key); }
    bool isTouched(const QString &key) const { return fTouched.contains(key); }
    bool isEmpty() const { return fValues.isEmpty(); }

    /// One block. What was loaded is written as it came while nothing was changed since.
    void store(TDataStream &stream) const;
    /// Keeps the bag as it was for a stream without one or a damaged one.
    void load(TDataStream &stream);

    /// The fields that applyTo gives to items.
    virtual QVariantMap appliedFields() const { return fValues; }

    /// Fields as a text in JSON.
    static QString toJson(const QVariantMap &fields);
    /// The fields of such a text that are among the known ones and convert to their types; none for any other text.
    static QVariantMap fromJson(const QString &text, const QVariantMap &known);

    /// Saves the fields as the defaults for items like this one, as a text in JSON.
    void saveDefaults(const TCanvasItem &item) const;
    /// Forgets them.
    void removeDefaults(const TCanvasItem &item) const;
    /// Takes the saved defaults for items like this one; false when there are none.
    bool loadDefaults(const TCanvasItem &item);

protected:
    virtual QVariantMap readItem(const TCanvasItem &item) const = 0;
    /// Fields that the item has not, and values out of their range, are passed over.
    virtual void writeItem(TCanvasItem &item, const QVariantMap &fields) const = 0;
    const QSet<QString> &touched() const { return fTouched; }

private:
    QMap<QString, QVariantMap> fieldsBySettingsKey(const TCanvasItem &item) const;

    int fItemType;
    QVariantMap fValues;
    QSet<QString> fMixed;
    QSet<QString> fTouched;
    QByteArray fStored; // of the block that was loaded, until something changes
};
