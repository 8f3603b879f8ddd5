#include "canvas/DocumentBytes.h"

#include "stream/TDataStream.h"

#include <limits>

QByteArray readRestOfBlock(TDataStream &stream)
{
    const qint64 left = stream.bytesLeft();
    if (!stream.isGood() || left <= 0)
        return QByteArray();
    if (left > std::numeric_limits<int>::max()) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return QByteArray();
    }
    QByteArray bytes(int(left), Qt::Uninitialized);
    if (stream.readRawData(bytes.data(), bytes.size()) != bytes.size()) {
        stream.setStatus(QDataStream::ReadPastEnd);
        return QByteArray();
    }
    return bytes;
}

void writeRawBytes(TDataStream &stream, const QByteArray &bytes)
{
    if (!bytes.isEmpty())
        stream.writeRawData(bytes.constData(), bytes.size());
}
