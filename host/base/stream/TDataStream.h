#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QHash>
#include <QString>
#include <QUuid>
#include <QVariant>
#include <QVector>
#include <memory>
#include <type_traits>

class QBuffer;
class TLimitedDevice;

/// The stream of all persistence: QDataStream of version Qt_5_12, big-endian, double precision, with block framing
/// (TDataStreamAdaptor) and bounded readers.
///
/// Nothing is sized by a number from the stream before that number was compared with the bytes that are left.
/// Containers and variants have no operator>>: use readCount, readDoubles and readVariant.
class TDataStream : public QDataStream
{
public:
    /// Reads or writes an open device, which is not owned and must be able to seek.
    explicit TDataStream(QIODevice *device);
    /// Reads or writes an array in memory, from its start.
    TDataStream(QByteArray *bytes, QIODevice::OpenMode mode);
    /// Reads an array in memory.
    explicit TDataStream(const QByteArray &bytes);
    ~TDataStream();

    TDataStream(const TDataStream &) = delete;
    TDataStream &operator=(const TDataStream &) = delete;

    /// Notes for readers by id. They never change the byte layout and are never written.
    void setData(int id, const QVariant &value) { fData.insert(id, value); }
    /// The note of that id; invalid when none was set.
    QVariant data(int id) const { return fData.value(id); }

    /// Bytes to the end of the innermost entered block, else to the end of the device.
    qint64 bytesLeft() const;
    bool atLimit() const { return bytesLeft() <= 0; }
    /// The position in the device, for messages about damage.
    qint64 devicePosition() const;

    /// Reads an int32 count of elements that take at least `minBytesPerElement` bytes each. A negative count or one
    /// that the bytes left cannot hold gives 0 and ReadCorruptData.
    int readCount(int minBytesPerElement);
    /// int32 count, then the doubles.
    void writeDoubles(const QVector<double> &values);
    /// False, with `values` empty, for a count that the stream cannot hold.
    bool readDoubles(QVector<double> &values);
    /// Reads what `<<` of a QVariant wrote: bool, int, uint, qint64, double, QString, QByteArray, QUuid, QColor,
    /// QDateTime, QPointF, QRectF, list, string list and map. Any other type, a count that the stream cannot hold and
    /// nesting beyond maxDepth are ReadCorruptData; the value is then invalid and false is returned.
    bool readVariant(QVariant &value, int maxDepth = 16);

    bool isGood() const { return status() == Ok; }
    /// A tolerant stream cuts a block's length to what is there instead of calling it corrupt, and remembers it.
    void setTolerant(bool tolerant) { fTolerant = tolerant; }
    bool isTolerant() const { return fTolerant; }
    bool isTruncated() const { return fTruncated; }
    /// For readers that want to know it of one block among others.
    void setTruncated(bool truncated) { fTruncated = truncated; }

    TDataStream &operator>>(QString &text);
    TDataStream &operator>>(QByteArray &bytes);
    template <typename T>
    TDataStream &operator>>(T &value)
    {
        static_assert(std::is_arithmetic<T>::value || std::is_same<T, QUuid>::value,
                      "foreign bytes are read through readCount, readDoubles, readVariant or Utils::Stream");
        static_cast<QDataStream &>(*this) >> value;
        return *this;
    }
    template <typename T>
    TDataStream &operator<<(const T &value)
    {
        static_cast<QDataStream &>(*this) << value;
        return *this;
    }

private:
    friend class TDataStreamAdaptor;
    void init();
    bool readRaw(char *bytes, qint64 size);
    bool readVariantList(QVariantList &list, int maxDepth);
    bool readVariantMap(QVariantMap &map, int maxDepth);
    bool readVariantValue(quint32 type, QVariant &value, int maxDepth);

    std::unique_ptr<QBuffer> fBuffer; // when the stream works on an array
    std::unique_ptr<TLimitedDevice> fLimited;
    QHash<int, QVariant> fData;
    bool fTolerant = false;
    bool fTruncated = false;
};

/// Restores the stream's status when it goes out of scope, whatever happened in between.
class TStatusGuard
{
public:
    explicit TStatusGuard(TDataStream &stream)
        : fStream(stream)
        , fStatus(stream.status())
    {
    }
    ~TStatusGuard()
    {
        fStream.resetStatus();
        fStream.setStatus(fStatus);
    }
    TStatusGuard(const TStatusGuard &) = delete;
    TStatusGuard &operator=(const TStatusGuard &) = delete;

private:
    TDataStream &fStream;
    QDataStream::Status fStatus;
};
