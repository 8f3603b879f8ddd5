#pragma once

#include "TBytes.h"

#include <QVector>

/// A block of an OMNIC file under its type; `fOffset` and `fSize` below 0 stand for where the block really is.
struct TOmnicBlock
{
    int fType;
    QByteArray fBytes;
    qint64 fOffset = -1;
    qint64 fSize = -1;
};

inline QByteArray omnicDescription(int points, int xCode, int yCode, float first, float last)
{
    TBytes bytes(140);
    bytes.put(0, quint32(1)).put(4, quint32(points)).put(8, quint8(xCode)).put(12, quint8(yCode));
    return bytes.put(16, first).put(20, last).bytes();
}

inline QByteArray omnicFloats(const QVector<float> &values)
{
    TBytes bytes;
    for (const float value : values)
        bytes.add(value);
    return bytes.bytes();
}

inline QByteArray omnicHeader(const QByteArray &title, quint32 seconds)
{
    return TBytes().addText(title, 256).add(seconds).zeros(4).bytes();
}

/// The blocks behind a directory with room for a multiple of 16 entries.
inline QByteArray omnicFile(const QByteArray &title, quint32 seconds, const QVector<TOmnicBlock> &blocks)
{
    const int room = 16 * ((blocks.size() + 15) / 16);
    TBytes file(304 + 16 * room);
    file.putText(0, "Spectral Data File\r\n").putText(30, title);
    file.put(294, quint16(blocks.size())).put(296, seconds);
    for (int i = 0; i < blocks.size(); ++i) {
        const TOmnicBlock &block = blocks.at(i);
        const int entry = 304 + 16 * i;
        file.put(entry, quint16(block.fType));
        file.put(entry + 2, quint32(block.fOffset < 0 ? file.size() : block.fOffset));
        file.put(entry + 6, quint32(block.fSize < 0 ? block.fBytes.size() : block.fSize));
        file.addText(block.fBytes);
    }
    return file.bytes();
}

/// One spectrum with a comment and a history of two lines.
inline QByteArray omnicSingle()
{
    return omnicFile("Sample A", 3848830326u,
                     {{2, omnicDescription(4, 1, 16, 4000.0f, 400.0f)},
                      {4, QByteArray("first\0comment\0", 14)},
                      {27, QByteArray("Collect\r\n\t Background\0", 22)},
                      {130, QByteArray(12, '\x7f')},
                      {3, omnicFloats({1.0f, 2.0f, 3.0f, 4.5f})}});
}

/// Three spectra, each with description and values; the second has no header of its own. `between` stands behind the
/// values of each.
inline QByteArray omnicGroup(const QVector<TOmnicBlock> &between)
{
    QVector<TOmnicBlock> blocks;
    for (int i = 0; i < 3; ++i) {
        blocks.append({2, omnicDescription(2, 1, 17, 4000.0f - float(i), 400.0f + float(i))});
        if (i != 1)
            blocks.append({107, omnicHeader("Part " + QByteArray::number(i), 3848830326u + quint32(i))});
        blocks.append({3, omnicFloats({float(i), float(i) + 0.5f})});
        blocks += between;
    }
    return omnicFile("Group", 3848830000u, blocks);
}
