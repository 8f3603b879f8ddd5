#pragma once

#include "TBytes.h"

#include <QVector>

inline QByteArray spBlock(int id, const QByteArray &payload)
{
    return TBytes().add(quint16(id)).add(qint32(payload.size())).addText(payload).bytes();
}

inline QByteArray spText(const QByteArray &text)
{
    return TBytes().addText("#u").add(quint16(text.size())).addText(text).bytes();
}

inline QByteArray spNumber(const char *tag, qint16 value)
{
    return TBytes().addText(tag).add(value).bytes();
}

inline QByteArray spPair(int id, double first, double second)
{
    return spBlock(id, TBytes().add(quint16(29981)).add(first).add(second).bytes());
}

inline QByteArray spCount(int id, qint32 count)
{
    return spBlock(id, TBytes().add(quint16(29995)).add(count).bytes());
}

inline QByteArray spData(const QVector<double> &values)
{
    TBytes bytes;
    bytes.add(quint16(29974)).add(qint32(8 * values.size()));
    for (const double value : values)
        bytes.add(value);
    return spBlock(35708, bytes.bytes());
}

/// A name value that a text block cannot be: number 9 and 10 stand in one block, as instruments write them.
inline QByteArray spMembers(int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i) {
        if (i == 9)
            bytes += spBlock(35840, spNumber(",u", 32) + spNumber("$u", 1));
        else if (i != 10)
            bytes += spBlock(35800 + i, spText("m" + QByteArray::number(i)));
    }
    return bytes;
}

/// The part that leads down to the name values.
inline QByteArray spHistory(const QByteArray &members)
{
    const QByteArray inner = spBlock(35697, QByteArray("/uz\0", 4)) + spBlock(35703, spBlock(122, members));
    return spBlock(35711, spBlock(121, inner));
}

inline QByteArray spFile(const QByteArray &blocks)
{
    return TBytes().addText("PEPE").addText("2D constant interval DataSet file", 40).bytes() + spBlock(120, blocks);
}

/// The data blocks of a spectrum of three points.
inline QByteArray spDataBlocks(const QByteArray &xLabel, const QByteArray &yLabel)
{
    return spBlock(35709, spText("C:\\data\\a.sp")) + spPair(35698, 4000.0, 750.0) + spPair(35699, 0.5, 2.5) +
           spBlock(35700, TBytes().add(quint16(29979)).add(-1625.0).bytes()) + spCount(35701, 3) +
           spBlock(35703, spText(xLabel)) + spBlock(35704, spText(yLabel)) +
           spBlock(35713, spText("alias: one\r\ntwo")) + spData({0.5, 1.5, 2.5});
}

inline QByteArray spSpectrum(int members = 36)
{
    return spFile(spHistory(spMembers(members)) + spDataBlocks("Wavenumber", "A"));
}
