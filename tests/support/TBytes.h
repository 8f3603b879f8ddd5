#pragma once

#include <QByteArray>
#include <cstring>

/// Builds little-endian binary files for tests. Fields go to the end, or with the put functions to a place, up to which
/// the file grows with zeros.
class TBytes
{
public:
    TBytes() = default;
    explicit TBytes(int zeros)
        : fBytes(zeros, '\0')
    {
    }

    int size() const { return fBytes.size(); }
    const QByteArray &bytes() const { return fBytes; }

    template <typename T>
    TBytes &add(T value)
    {
        return put(fBytes.size(), value);
    }
    /// A text, filled up with zeros or cut to `width` bytes where that is given.
    TBytes &addText(const QByteArray &text, int width = -1)
    {
        return putText(fBytes.size(), width < 0 ? text : text.leftJustified(width, '\0', true));
    }
    template <typename T>
    TBytes &put(int offset, T value)
    {
        grow(offset + int(sizeof(T)));
        std::memcpy(fBytes.data() + offset, &value, sizeof(T));
        return *this;
    }
    TBytes &putText(int offset, const QByteArray &text)
    {
        grow(offset + text.size());
        std::memcpy(fBytes.data() + offset, text.constData(), size_t(text.size()));
        return *this;
    }
    TBytes &zeros(int count)
    {
        fBytes.append(QByteArray(count, '\0'));
        return *this;
    }

private:
    void grow(int size)
    {
        if (size > fBytes.size())
            fBytes.append(QByteArray(size - fBytes.size(), '\0'));
    }

    QByteArray fBytes;
};
