#pragma once

#include "TBytes.h"

#include <QVector>

/// Builds SPC files for tests and fuzz seeds: main headers, subheaders, values, log.
namespace SpcBuilder {

/// A new header for float values, absorbance over wavenumbers, experiment FT-IR.
inline TBytes newHeader(int points, double firstX, double lastX, int subfiles = 1)
{
    return TBytes(512)
        .put(1, quint8(0x4B))
        .put(2, quint8(4))
        .put(3, quint8(0x80))
        .put(4, qint32(points))
        .put(8, firstX)
        .put(16, lastX)
        .put(24, qint32(subfiles))
        .put(28, quint8(1))
        .put(29, quint8(2));
}

/// An old header with its subheader.
inline TBytes oldHeader(float points, float firstX, float lastX, qint16 exponent)
{
    return TBytes(256)
        .put(1, quint8(0x4D))
        .put(2, exponent)
        .put(4, points)
        .put(8, firstX)
        .put(12, lastX)
        .put(16, quint8(1))
        .put(17, quint8(2));
}

template <typename T>
TBytes &addValues(TBytes &file, const QVector<T> &values)
{
    for (const T value : values)
        file.add(value);
    return file;
}

/// A subheader and float values.
inline TBytes &addSubfile(TBytes &file, const QVector<float> &values, float z = 0.0f, int index = 0)
{
    const int start = file.size();
    file.zeros(32).put(start + 2, quint16(index)).put(start + 4, z);
    return addValues(file, values);
}

/// A log at the end of the file, with binary bytes in front of its text.
inline TBytes &addLog(TBytes &file, const QByteArray &text, int binaryBytes = 0)
{
    const int start = file.size();
    file.put(248, qint32(start)).zeros(64 + binaryBytes).put(start + 12, qint32(binaryBytes));
    return file.addText(text);
}

} // namespace SpcBuilder
