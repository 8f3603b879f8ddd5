#pragma once

#include <QByteArray>
#include <QFile>
#include <cstring>
#include <type_traits>

/// Little-endian fields of a binary file by their offsets, read through a window, so that files of any size need little
/// memory. Nothing is ever read beyond the end of the file: a field that leaves it is 0, and says so in has().
class TBinaryFile
{
public:
    explicit TBinaryFile(const QString &path);

    bool isOpen() const { return fFile.isOpen(); }
    /// Why it is not open.
    QString error() const { return fFile.errorString(); }
    qint64 size() const { return fSize; }
    /// Whether that many bytes stand at `offset`. Negative numbers, and sums that overflow, give false.
    bool has(qint64 offset, qint64 bytes) const
    {
        return offset >= 0 && bytes >= 0 && offset <= fSize && bytes <= fSize - offset;
    }

    /// The number of type T at `offset`: integers of up to 8 bytes, float and double. 0 where the file ends before.
    template <typename T>
    T number(qint64 offset) const
    {
        static_assert(std::is_arithmetic<T>::value, "numbers only");
        T value{};
        if (const char *bytes = window(offset, qint64(sizeof(T))))
            std::memcpy(&value, bytes, sizeof(T)); // the machines that this runs on are little-endian
        return value;
    }
    quint8 u8(qint64 offset) const { return number<quint8>(offset); }
    quint16 u16(qint64 offset) const { return number<quint16>(offset); }
    quint32 u32(qint64 offset) const { return number<quint32>(offset); }
    qint32 i32(qint64 offset) const { return number<qint32>(offset); }
    float f32(qint64 offset) const { return number<float>(offset); }
    double f64(qint64 offset) const { return number<double>(offset); }

    /// The bytes at `offset`, as many as are there.
    QByteArray bytes(qint64 offset, qint64 count) const;
    /// A text that ends at its first zero byte or behind `count` bytes.
    QByteArray text(qint64 offset, qint64 count) const;

    /// Reads `count` numbers of type T from `offset` and puts convert(T) of each into `to`. Returns how many stood
    /// there; the rest of `to` stays as it is. Fast: one pass over large pieces of the file.
    template <typename T, typename TConvert>
    qint64 numbers(qint64 offset, qint64 count, double *to, TConvert convert) const
    {
        const qint64 there = available(offset, count, qint64(sizeof(T)));
        qint64 done = 0;
        while (done < there) {
            const qint64 piece = qMin<qint64>(there - done, cWindow / qint64(sizeof(T)));
            const char *bytes = window(offset + done * qint64(sizeof(T)), piece * qint64(sizeof(T)));
            if (!bytes)
                break;
            for (qint64 i = 0; i < piece; ++i) {
                T value;
                std::memcpy(&value, bytes + i * qint64(sizeof(T)), sizeof(T));
                to[done + i] = convert(value);
            }
            done += piece;
        }
        return done;
    }
    qint64 floats(qint64 offset, qint64 count, double *to) const
    {
        return numbers<float>(offset, count, to, [](float value) { return double(value); });
    }
    qint64 doubles(qint64 offset, qint64 count, double *to) const
    {
        return numbers<double>(offset, count, to, [](double value) { return value; });
    }

private:
    static constexpr qint64 cWindow = 256 * 1024; // bytes; fits the second-level cache

    /// How many of `count` fields of `width` bytes lie within the file.
    qint64 available(qint64 offset, qint64 count, qint64 width) const;
    /// The bytes in memory, up to cWindow of them; null where they are not there.
    const char *window(qint64 offset, qint64 bytes) const
    {
        if (offset >= fWindowStart && bytes <= fWindow.size() - (offset - fWindowStart))
            return fWindow.constData() + (offset - fWindowStart);
        return moveWindow(offset, bytes);
    }
    const char *moveWindow(qint64 offset, qint64 bytes) const;

    mutable QFile fFile;
    mutable QByteArray fWindow;
    mutable qint64 fWindowStart = 0;
    qint64 fSize = 0;
};
