#include "properties/TPropertiesBag.h"

#include "canvas/DocumentBytes.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TCanvasItemList.h"
#include "settings/TDefaultsIni.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <QColor>
#include <QJsonDocument>
#include <QJsonObject>

void TPropertiesBag::fillFrom(const TCanvasItem &item)
{
    fValues = isApplicable(item) ? readItem(item) : QVariantMap();
    fMixed.clear();
    fTouched.clear();
    fStored.clear();
}

void TPropertiesBag::fillFrom(const TCanvasItemList &items)
{
    QVariantMap values;
    QSet<QString> mixed;
    bool isFirst = true;
    for (ICanvasItem *entry : items) {
        const TCanvasItem *item = canvasItem(entry);
        if (!item || !isApplicable(*item))
            continue;
        const QVariantMap fields = readItem(*item);
        if (isFirst)
            values = fields;
        isFirst = false;
        for (auto it = fields.constBegin(); it != fields.constEnd(); ++it) {
            if (values.value(it.key()) != it.value())
                mixed.insert(it.key());
        }
    }
    fValues = values;
    fMixed = mixed;
    fTouched.clear();
    fStored.clear();
}

void TPropertiesBag::applyTo(TCanvasItem &item) const
{
    if (isApplicable(item))
        writeItem(item, appliedFields());
}

void TPropertiesBag::setValue(const QString &key, const QVariant &value)
{
    fValues.insert(key, value);
    fTouched.insert(key);
    fMixed.remove(key);
    fStored.clear();
}

void TPropertiesBag::store(TDataStream &stream) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    if (fStored.isEmpty())
        stream << QVariant(fValues);
    else
        writeRawBytes(stream, fStored);
    block.endStore();
}

void TPropertiesBag::load(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        const QByteArray bytes = readRestOfBlock(stream);
        TDataStream fields(bytes);
        QVariant map;
        if (fields.readVariant(map))
            fValues = map.toMap();
        fStored = bytes;
        fMixed.clear();
        fTouched.clear();
    }
    block.skipData();
}

QString TPropertiesBag::toJson(const QVariantMap &fields)
{
    QJsonObject object;
    for (auto it = fields.constBegin(); it != fields.constEnd(); ++it) {
        const bool isColor = it.value().userType() == QMetaType::QColor;
        object.insert(it.key(), isColor ? QJsonValue(it.value().value<QColor>().name(QColor::HexArgb))
                                        : QJsonValue::fromVariant(it.value()));
    }
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QVariantMap TPropertiesBag::fromJson(const QString &text, const QVariantMap &known)
{
    const QJsonObject object = QJsonDocument::fromJson(text.toUtf8()).object();
    QVariantMap fields;
    for (auto it = known.constBegin(); it != known.constEnd(); ++it) {
        if (!object.contains(it.key()))
            continue;
        QVariant value = object.value(it.key()).toVariant();
        if (it.value().userType() == QMetaType::QColor) {
            const QColor color(value.toString());
            value = color.isValid() ? QVariant(color) : it.value();
        }
        if (value.convert(it.value().userType()))
            fields.insert(it.key(), value);
    }
    return fields;
}

/// The fields by the settings key under which they stand.
QMap<QString, QVariantMap> TPropertiesBag::fieldsBySettingsKey(const TCanvasItem &item) const
{
    QMap<QString, QVariantMap> parts;
    const QString key = settingsKey(item);
    if (key.isEmpty())
        return parts;
    for (auto it = fValues.constBegin(); it != fValues.constEnd(); ++it) {
        const QString shared = sharedSettingsKey(it.key());
        parts[shared.isEmpty() ? key : shared].insert(it.key(), it.value());
    }
    return parts;
}

void TPropertiesBag::saveDefaults(const TCanvasItem &item) const
{
    const QMap<QString, QVariantMap> parts = fieldsBySettingsKey(item);
    for (auto it = parts.constBegin(); it != parts.constEnd(); ++it)
        TDefaultsIni().setValue(it.key(), toJson(it.value()));
}

void TPropertiesBag::removeDefaults(const TCanvasItem &item) const
{
    for (const QString &key : fieldsBySettingsKey(item).keys())
        TDefaultsIni().remove(key);
}

bool TPropertiesBag::loadDefaults(const TCanvasItem &item)
{
    fillFrom(item); // the types, and the values of fields that an older program did not save
    bool found = false;
    const QMap<QString, QVariantMap> parts = fieldsBySettingsKey(item);
    for (auto part = parts.constBegin(); part != parts.constEnd(); ++part) {
        const QVariantMap fields = fromJson(TDefaultsIni().value(part.key(), QString()).toString(), part.value());
        found = found || !fields.isEmpty();
        for (auto it = fields.constBegin(); it != fields.constEnd(); ++it)
            fValues.insert(it.key(), it.value());
    }
    return found;
}
