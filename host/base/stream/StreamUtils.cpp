#include "stream/StreamUtils.h"

#include "stream/TDataStream.h"

#include <QBrush>
#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QPen>
#include <cmath>
#include <limits>

namespace {

// A value is read field by field, written again into a small array with Qt's own layout and, once every field has been
// found sound, handed to Qt's reader, which alone can set all members. Layouts are those of QDataStream::Qt_5_12.

constexpr double cMaxFontSize = 1e4;
constexpr double cMaxPenWidth = 1e6;
constexpr double cMaxTransform = 1e9;
constexpr int cMaxDashes = 64;
constexpr qint64 cNullDay = std::numeric_limits<qint64>::min();
constexpr qint64 cLastDay = 5373484; // Julian day of 9999-12-31
constexpr quint32 cNullTime = 0xffffffff;
constexpr quint32 cMsecsPerDay = 86400000;
constexpr qint32 cMaxOffset = 16 * 3600; // seconds

bool corrupt(TDataStream &stream)
{
    if (stream.isGood())
        stream.setStatus(QDataStream::ReadCorruptData);
    return false;
}

template <class T>
bool handOver(QByteArray &bytes, T &value)
{
    QDataStream checked(&bytes, QIODevice::ReadOnly);
    checked.setVersion(QDataStream::Qt_5_12);
    T read;
    checked >> read;
    if (checked.status() != QDataStream::Ok)
        return false;
    value = read;
    return true;
}

/// Copies one number from the stream to the layout and answers it.
template <class T>
T copy(TDataStream &stream, TDataStream &layout)
{
    T number{};
    stream >> number;
    layout << number;
    return number;
}

/// qint8 kind of colour, five quint16.
bool copyColor(TDataStream &stream, TDataStream &layout)
{
    const qint8 spec = copy<qint8>(stream, layout);
    for (int i = 0; i < 5; ++i)
        copy<quint16>(stream, layout);
    return stream.isGood() && spec >= QColor::Invalid && spec <= QColor::ExtendedRgb;
}

/// quint8 style, colour, nine doubles of the transformation; gradients and pictures would hold more.
bool copyBrush(TDataStream &stream, TDataStream &layout)
{
    const quint8 style = copy<quint8>(stream, layout);
    bool ok = copyColor(stream, layout) && style <= Qt::DiagCrossPattern;
    for (int i = 0; i < 9; ++i)
        ok = std::abs(copy<double>(stream, layout)) <= cMaxTransform && ok; // false for NaN
    return ok && stream.isGood();
}

bool copyDashes(TDataStream &stream, TDataStream &layout)
{
    const int count = stream.readCount(int(sizeof(double)));
    if (!stream.isGood() || count > cMaxDashes)
        return false;
    layout << qint32(count);
    bool ok = true;
    for (int i = 0; i < count; ++i) {
        const double dash = copy<double>(stream, layout);
        ok = ok && dash >= 0.0 && dash <= cMaxPenWidth;
    }
    return ok;
}

/// quint16 style, bool cosmetic, double width, brush, double mitre limit, dashes, double offset, bool default width.
bool copyPen(TDataStream &stream, TDataStream &layout)
{
    constexpr quint16 cKnownBits = quint16(Qt::MPenStyle) | quint16(Qt::MPenCapStyle) | quint16(Qt::MPenJoinStyle);
    const quint16 style = copy<quint16>(stream, layout);
    bool ok = (style & ~cKnownBits) == 0 && (style & Qt::MPenStyle) <= Qt::CustomDashLine;
    ok = copy<quint8>(stream, layout) <= 1 && ok;
    const double width = copy<double>(stream, layout);
    ok = width >= 0.0 && width <= cMaxPenWidth && ok;
    if (!ok || !copyBrush(stream, layout))
        return false;
    ok = std::isfinite(copy<double>(stream, layout));
    ok = copyDashes(stream, layout) && ok;
    ok = std::isfinite(copy<double>(stream, layout)) && ok;
    return copy<quint8>(stream, layout) <= 1 && ok && stream.isGood();
}

/// Family, style name, double points, qint32 pixels, quint8 hint, quint16 strategy, quint8 0, quint8 weight, quint8
/// bits, quint16 stretch, quint8 more bits, qint32 letter and word spacing, quint8 hinting, quint8 capitals.
bool copyFont(TDataStream &stream, TDataStream &layout)
{
    QString family;
    QString style;
    stream >> family >> style;
    layout << family << style;
    const double points = copy<double>(stream, layout);
    const qint32 pixels = copy<qint32>(stream, layout);
    copy<quint8>(stream, layout);
    copy<quint16>(stream, layout);
    copy<quint8>(stream, layout);
    const quint8 weight = copy<quint8>(stream, layout);
    copy<quint8>(stream, layout);
    copy<quint16>(stream, layout);
    copy<quint8>(stream, layout);
    copy<qint32>(stream, layout);
    copy<qint32>(stream, layout);
    copy<quint8>(stream, layout);
    const quint8 capitals = copy<quint8>(stream, layout);
    return stream.isGood() && points >= -1.0 && points <= cMaxFontSize && pixels >= -1 && pixels <= cMaxFontSize &&
           weight <= 99 && capitals <= QFont::Capitalize;
}

template <class T>
bool readThrough(TDataStream &stream, T &value, bool (*copyFields)(TDataStream &, TDataStream &))
{
    QByteArray bytes;
    TDataStream layout(&bytes, QIODevice::WriteOnly);
    if (!stream.isGood() || !copyFields(stream, layout) || !handOver(bytes, value))
        return corrupt(stream);
    return true;
}

} // namespace

namespace Utils {
namespace Stream {

bool read(TDataStream &stream, QColor &color)
{
    return readThrough(stream, color, copyColor);
}

bool read(TDataStream &stream, QDateTime &time)
{
    qint64 day = 0;
    quint32 msecs = 0;
    qint8 spec = 0;
    qint32 offset = 0;
    stream >> day >> msecs >> spec;
    if (spec == Qt::OffsetFromUTC)
        stream >> offset;
    const bool soundDate = day == cNullDay || (day >= 0 && day <= cLastDay);
    const bool soundTime = msecs == cNullTime || msecs < cMsecsPerDay;
    const bool soundSpec = spec >= Qt::LocalTime && spec <= Qt::OffsetFromUTC && qAbs(qint64(offset)) <= cMaxOffset;
    if (!stream.isGood() || !soundDate || !soundTime || !soundSpec)
        return corrupt(stream);
    const QDate date = day == cNullDay ? QDate() : QDate::fromJulianDay(day);
    const QTime clock = msecs == cNullTime ? QTime() : QTime::fromMSecsSinceStartOfDay(int(msecs));
    time = QDateTime(date, clock, Qt::TimeSpec(spec), offset);
    return true;
}

bool read(TDataStream &stream, QFont &font)
{
    return readThrough(stream, font, copyFont);
}

bool read(TDataStream &stream, QPen &pen)
{
    return readThrough(stream, pen, copyPen);
}

bool read(TDataStream &stream, QStringList &list)
{
    QStringList read;
    const int count = stream.readCount(int(sizeof(quint32)));
    for (int i = 0; i < count && stream.isGood(); ++i) {
        QString text;
        stream >> text;
        read.append(text);
    }
    if (!stream.isGood())
        return false;
    list = read;
    return true;
}

bool read(TDataStream &stream, QVariantMap &map)
{
    QVariantMap read;
    const int count = stream.readCount(2 * int(sizeof(quint32)) + 1);
    for (int i = 0; i < count && stream.isGood(); ++i) {
        QString key;
        QVariant value;
        stream >> key;
        if (stream.isGood() && stream.readVariant(value))
            read.insert(key, value);
    }
    if (!stream.isGood())
        return false;
    map = read;
    return true;
}

} // namespace Stream
} // namespace Utils
