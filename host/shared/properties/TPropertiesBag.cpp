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

void TPropertiesBag::saveDefaults(const TCanvasItem &item) const
{
    const QString key = settingsKey(item);
    if (key.isEmpty())
        return;
    QJsonObject fields;
    for (auto it = fValues.constBegin(); it != fValues.constEnd(); ++it) {
        const bool isColor = it.value().userType() == QMetaType::QColor;
        fields.insert(it.key(), isColor ? QJsonValue(it.value().value<QColor>().name(QColor::HexArgb))
                                        : QJsonValue::fromVariant(it.value()));
    }
    TDefaultsIni().setValue(key, QString::fromUtf8(QJsonDocument(fields).toJson(QJsonDocument::Compact)));
}

bool TPropertiesBag::loadDefaults(const TCanvasItem &item)
{
    const QString key = settingsKey(item);
    const QString text = key.isEmpty() ? QString() : TDefaultsIni().value(key, QString()).toString();
    const QJsonObject fields = QJsonDocument::fromJson(text.toUtf8()).object();
    if (fields.isEmpty())
        return false;
    fillFrom(item); // the types, and the values of fields that an older program did not save
    for (auto it = fValues.begin(); it != fValues.end(); ++it) {
        if (!fields.contains(it.key()))
            continue;
        QVariant value = fields.value(it.key()).toVariant();
        if (it.value().userType() == QMetaType::QColor) {
            const QColor color(value.toString());
            value = color.isValid() ? QVariant(color) : it.value();
        }
        if (value.convert(it.value().userType()))
            it.value() = value;
    }
    return true;
}
