#include "stream/TDataStream.h"

#include "stream/StreamUtils.h"
#include "stream/TLimitedDevice.h"

#include <QBuffer>
#include <QColor>
#include <QDateTime>
#include <QPointF>
#include <QRectF>
#include <QStringList>
#include <QtEndian>
#include <cstring>

namespace {

constexpr int cDoublesPerChunk = 8192; // 64 KiB of swapped doubles at a time
constexpr quint32 cNullLength = 0xffffffff;
constexpr qint64 cMaxArrayBytes = 0x7fff0000; // Qt counts the bytes of an array in an int

} // namespace

TDataStream::TDataStream(QIODevice *device)
    : fLimited(new TLimitedDevice(device))
{
    init();
}

TDataStream::TDataStream(QByteArray *bytes, QIODevice::OpenMode mode)
    : fBuffer(new QBuffer(bytes))
{
    fBuffer->open(mode);
    fLimited.reset(new TLimitedDevice(fBuffer.get()));
    init();
}

TDataStream::TDataStream(const QByteArray &bytes)
    : fBuffer(new QBuffer)
{
    fBuffer->setData(bytes);
    fBuffer->open(QIODevice::ReadOnly);
    fLimited.reset(new TLimitedDevice(fBuffer.get()));
    init();
}

TDataStream::~TDataStream()
{
    setDevice(nullptr);
}

void TDataStream::init()
{
    setDevice(fLimited.get());
    setVersion(QDataStream::Qt_5_12);
    setByteOrder(QDataStream::BigEndian);
    setFloatingPointPrecision(QDataStream::DoublePrecision);
}

qint64 TDataStream::bytesLeft() const
{
    return fLimited->bytesLeft();
}

qint64 TDataStream::devicePosition() const
{
    return fLimited->device() ? fLimited->device()->pos() : 0;
}

bool TDataStream::readRaw(char *bytes, qint64 size)
{
    qint64 done = 0;
    while (isGood() && done < size) {
        const qint64 got = fLimited->read(bytes + done, size - done);
        if (got <= 0)
            setStatus(ReadPastEnd);
        else
            done += got;
    }
    return isGood();
}

int TDataStream::readCount(int minBytesPerElement)
{
    qint32 count = 0;
    *this >> count;
    if (!isGood())
        return 0;
    if (count < 0 || count > bytesLeft() / qMax(1, minBytesPerElement)) {
        setStatus(ReadCorruptData);
        return 0;
    }
    return count;
}

void TDataStream::writeDoubles(const QVector<double> &values)
{
    *this << qint32(values.size());
    QVector<quint64> chunk(qMin(values.size(), cDoublesPerChunk));
    for (int from = 0; from < values.size(); from += cDoublesPerChunk) {
        const int count = qMin(cDoublesPerChunk, values.size() - from);
        qToBigEndian<quint64>(values.constData() + from, count, chunk.data());
        writeRawData(reinterpret_cast<const char *>(chunk.constData()), count * int(sizeof(double)));
    }
}

bool TDataStream::readDoubles(QVector<double> &values)
{
    values.clear();
    const int count = readCount(int(sizeof(double)));
    if (!isGood())
        return false;
    if (count > cMaxArrayBytes / qint64(sizeof(double))) {
        setStatus(ReadCorruptData);
        return false;
    }
    values.resize(count);
    if (count == 0)
        return true;
    char *bytes = reinterpret_cast<char *>(values.data());
    if (!readRaw(bytes, qint64(count) * qint64(sizeof(double)))) {
        values.clear();
        return false;
    }
    qFromBigEndian<quint64>(bytes, count, bytes);
    return true;
}

TDataStream &TDataStream::operator>>(QByteArray &bytes)
{
    bytes.clear();
    quint32 length = 0;
    *this >> length;
    if (!isGood() || length == cNullLength)
        return *this;
    if (qint64(length) > qMin(bytesLeft(), cMaxArrayBytes)) {
        setStatus(ReadCorruptData);
        return *this;
    }
    bytes.resize(int(length));
    if (!readRaw(bytes.data(), length))
        bytes.clear();
    return *this;
}

TDataStream &TDataStream::operator>>(QString &text)
{
    text = QString();
    quint32 length = 0; // in bytes, two per character
    *this >> length;
    if (!isGood() || length == cNullLength)
        return *this;
    if (length % 2 != 0 || qint64(length) > qMin(bytesLeft(), cMaxArrayBytes)) {
        setStatus(ReadCorruptData);
        return *this;
    }
    text = QString(int(length / 2), Qt::Uninitialized);
    if (length > 0 && !readRaw(reinterpret_cast<char *>(text.data()), length)) {
        text = QString();
        return *this;
    }
    qFromBigEndian<quint16>(text.constData(), text.size(), text.data());
    return *this;
}

bool TDataStream::readVariantList(QVariantList &list, int maxDepth)
{
    const int count = readCount(int(sizeof(quint32)) + 1);
    for (int i = 0; i < count && isGood(); ++i) {
        QVariant value;
        if (readVariant(value, maxDepth - 1))
            list.append(value);
    }
    return isGood();
}

bool TDataStream::readVariantMap(QVariantMap &map, int maxDepth)
{
    const int count = readCount(2 * int(sizeof(quint32)) + 1);
    for (int i = 0; i < count && isGood(); ++i) {
        QString key;
        QVariant value;
        *this >> key;
        if (isGood() && readVariant(value, maxDepth - 1))
            map.insert(key, value);
    }
    return isGood();
}

bool TDataStream::readVariantValue(quint32 type, QVariant &value, int maxDepth)
{
    const auto plain = [this, &value](auto initial) {
        static_cast<QDataStream &>(*this) >> initial;
        value = QVariant::fromValue(initial);
        return isGood();
    };
    const auto checked = [this, &value](auto initial) {
        *this >> initial;
        value = initial;
        return isGood();
    };
    const auto sound = [this, &value](auto initial) {
        const bool good = Utils::Stream::read(*this, initial);
        value = initial;
        return good;
    };
    switch (type) {
    case QMetaType::Bool:
        return plain(false);
    case QMetaType::Int:
        return plain(int(0));
    case QMetaType::UInt:
        return plain(uint(0));
    case QMetaType::LongLong:
        return plain(qlonglong(0));
    case QMetaType::Double:
        return plain(0.0);
    case QMetaType::QUuid:
        return plain(QUuid());
    case QMetaType::QColor:
        return sound(QColor());
    case QMetaType::QDateTime:
        return sound(QDateTime());
    case QMetaType::QPointF:
        return plain(QPointF());
    case QMetaType::QRectF:
        return plain(QRectF());
    case QMetaType::QString:
        return checked(QString());
    case QMetaType::QByteArray:
        return checked(QByteArray());
    case QMetaType::QStringList: {
        QStringList list;
        const int count = readCount(int(sizeof(quint32)));
        for (int i = 0; i < count && isGood(); ++i) {
            QString text;
            *this >> text;
            list.append(text);
        }
        value = list;
        return isGood();
    }
    case QMetaType::QVariantList: {
        QVariantList list;
        const bool good = readVariantList(list, maxDepth);
        value = list;
        return good;
    }
    case QMetaType::QVariantMap: {
        QVariantMap map;
        const bool good = readVariantMap(map, maxDepth);
        value = map;
        return good;
    }
    default:
        setStatus(ReadCorruptData);
        return false;
    }
}

bool TDataStream::readVariant(QVariant &value, int maxDepth)
{
    value = QVariant();
    if (maxDepth < 0) {
        setStatus(ReadCorruptData);
        return false;
    }
    quint32 type = 0;
    qint8 isNull = 0;
    *this >> type >> isNull;
    if (!isGood())
        return false;
    if (type == QMetaType::UnknownType)
        return true;
    QVariant read;
    if (!readVariantValue(type, read, maxDepth))
        return false;
    value = isNull ? QVariant(QVariant::Type(type)) : read;
    return true;
}
