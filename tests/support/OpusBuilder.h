#pragma once

#include "TBytes.h"

#include <QVector>

/// Builds OPUS files for tests and fuzz seeds: blocks, each added behind the others, then the directory in front.
class OpusBuilder
{
public:
    struct TBlock
    {
        quint32 fWord;
        QByteArray fBytes;
    };

    OpusBuilder &add(quint32 word, const QByteArray &bytes)
    {
        fBlocks.append({word, bytes + QByteArray((4 - bytes.size() % 4) % 4, '\0')});
        return *this;
    }

    /// Values and the status block behind them.
    OpusBuilder &addSpectrum(quint32 word, const QVector<float> &y, double firstX, double lastX,
                             const QByteArray &more = QByteArray())
    {
        add(word, floats(y) + QByteArray(4, '\0')); // files have a float more than points
        return add(word | 0x10, status(y.size(), firstX, lastX, more));
    }

    /// Where the bytes of a block stand.
    int offsetOf(int block) const
    {
        int at = cStart;
        for (int i = 0; i < block; ++i)
            at += fBlocks.at(i).fBytes.size();
        return at;
    }

    TBytes file() const
    {
        TBytes bytes;
        bytes.addText("\x0A\x0A\xFE\xFE", 4).add(920622.0).add(qint32(24)).add(qint32(cCapacity));
        bytes.add(qint32(fBlocks.size() + 1));
        bytes.add(quint32(0x3400)).add(quint32(3 * cCapacity)).add(quint32(24));
        for (int i = 0; i < fBlocks.size(); ++i)
            bytes.add(fBlocks.at(i).fWord).add(quint32(fBlocks.at(i).fBytes.size() / 4)).add(quint32(offsetOf(i)));
        bytes.zeros(cStart - bytes.size());
        for (const TBlock &block : fBlocks)
            bytes.addText(block.fBytes);
        return bytes;
    }

    static QByteArray floats(const QVector<float> &values)
    {
        return QByteArray(reinterpret_cast<const char *>(values.constData()), values.size() * 4);
    }
    static QByteArray number(const char *name, int value)
    {
        return TBytes().addText(name, 4).add(quint16(0)).add(quint16(2)).add(qint32(value)).bytes();
    }
    static QByteArray number(const char *name, double value)
    {
        return TBytes().addText(name, 4).add(quint16(1)).add(quint16(4)).add(value).bytes();
    }
    /// A text with its zero byte, and stale bytes behind it.
    static QByteArray text(const char *name, const QByteArray &value, int type = 2)
    {
        const QByteArray bytes = value + '\0' + (value.size() % 2 == 0 ? "x" : "");
        return TBytes().addText(name, 4).add(quint16(type)).add(quint16(bytes.size() / 2)).addText(bytes).bytes();
    }
    static QByteArray end() { return TBytes().addText("END", 4).zeros(4).bytes(); }
    static QByteArray status(int points, double firstX, double lastX, const QByteArray &more = QByteArray())
    {
        return number("DPF", 1) + number("NPT", points) + number("FXV", firstX) + number("LXV", lastX) + more + end();
    }
    /// Unit and date as most status blocks have them.
    static QByteArray wavenumbers(const char *date = "03/05/2019")
    {
        return text("DXU", "WN", 3) + text("DAT", date) + text("TIM", "13:34:44.641 (GMT-4)");
    }
    /// A series block: `rows` of values, each with an info record that holds its scale.
    static QByteArray series(const QVector<QVector<float>> &rows, double scale, double firstX, double lastX)
    {
        const int points = rows.first().size();
        TBytes bytes;
        bytes.add(qint32(0)).add(qint32(rows.size())).add(qint32(32)).add(qint32(4 * points)).add(qint32(152));
        bytes.add(qint32(1)).add(qint32(1)).add(qint32(rows.size()));
        for (const QVector<float> &row : rows) {
            bytes.addText(floats(row));
            const int info = bytes.size();
            bytes.zeros(152).put(info + 12, qint32(points)).put(info + 72, firstX).put(info + 80, lastX);
            bytes.put(info + 104, scale);
        }
        return bytes.bytes();
    }

private:
    static constexpr int cCapacity = 40;
    static constexpr int cStart = 24 + 12 * cCapacity;

    QVector<TBlock> fBlocks;
};
