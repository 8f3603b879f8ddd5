#include "params/TBinaryParamsParser.h"

#include "params/TParamsBundle.h"

#include <QIODevice>
#include <QtEndian>
#include <cmath>

namespace {

constexpr int cFloatDigits = 9; // a float reads back to the same bits
constexpr double cWholeLimit = 1e15;

struct TField
{
    QString type;
    int offset = 0;
    int length = -1; // strings: -1 up to the end
};

bool parseField(const QString &key, TField &field)
{
    const QStringList parts = key.split(QLatin1Char(';'));
    if (parts.size() < 2 || parts.size() > 3)
        return false;
    bool ok = false;
    field.type = parts[0].trimmed();
    field.offset = parts[1].toInt(&ok);
    if (!ok || field.offset < 0)
        return false;
    if (parts.size() == 3) {
        field.length = parts[2].toInt(&ok);
        return ok && field.length >= 0;
    }
    return true;
}

template <class T>
T numberAt(const char *bytes, QDataStream::ByteOrder order)
{
    return order == QDataStream::BigEndian ? qFromBigEndian<T>(bytes) : qFromLittleEndian<T>(bytes);
}

QString floatText(float number)
{
    const double value = double(number);
    if (value == std::floor(value) && std::abs(value) < cWholeLimit)
        return QString::number(qint64(value));
    return QString::number(value, 'g', cFloatDigits);
}

QString stringText(const QByteArray &blob, const TField &field)
{
    const int left = blob.size() - field.offset;
    if (left < 0 || field.length > left)
        return QString();
    const QByteArray bytes = blob.mid(field.offset, field.length);
    const int end = bytes.indexOf('\0');
    return QLatin1String("") + QString::fromLatin1(bytes.constData(), end < 0 ? bytes.size() : end);
}

QString fieldText(const QByteArray &blob, const TField &field, QDataStream::ByteOrder order)
{
    if (field.type == QLatin1String("string"))
        return stringText(blob, field);
    const char *bytes = blob.constData() + qMin(field.offset, blob.size());
    const int left = blob.size() - field.offset;
    if (field.type == QLatin1String("byte") && left >= 1)
        return QString::number(quint8(*bytes));
    if (field.type == QLatin1String("word") && left >= 2)
        return QString::number(numberAt<quint16>(bytes, order));
    if (field.type == QLatin1String("int16") && left >= 2)
        return QString::number(numberAt<qint16>(bytes, order));
    if (field.type == QLatin1String("int32") && left >= 4)
        return QString::number(numberAt<qint32>(bytes, order));
    if (field.type == QLatin1String("float") && left >= 4)
        return floatText(numberAt<float>(bytes, order));
    return QString();
}

} // namespace

bool TBinaryParamsParser::needsBlob(const QString &source) const
{
    return source != QLatin1String("datafile"); // of which the bundle keeps the time, but no bytes
}

QString TBinaryParamsParser::value(const QString &source, const QString &key, const QString &path)
{
    QString known = TParamsParser::value(source, key, path);
    TField field;
    if (!known.isNull() || !parseField(key, field))
        return known;
    if (bundle())
        return fieldText((*bundle())[source].data(), field, byteOrder());
    const std::unique_ptr<QIODevice> device = sourceDevice(source, path);
    return device ? fieldText(device->read(TParamsBundle::cMaxBlobSize), field, byteOrder()) : QString();
}
