#include "stream/TDataStreamAdaptor.h"

#include "stream/TDataStream.h"
#include "stream/TLimitedDevice.h"

#include <QtEndian>

TDataStreamAdaptor::~TDataStreamAdaptor()
{
    if (fState == storing)
        endStore();
    else if (fState == entered)
        skipData();
}

void TDataStreamAdaptor::startStore()
{
    fStream << cMarker;
    fStart = fStream.fLimited->device()->pos();
    fStream << quint64(0);
    fState = storing;
}

void TDataStreamAdaptor::endStore()
{
    if (fState != storing)
        return;
    fState = idle;
    QIODevice *device = fStream.fLimited->device();
    const qint64 end = device->pos();
    const qint64 payload = end - fStart - qint64(sizeof(quint64));
    if (payload < 0 || !device->seek(fStart)) {
        fStream.setStatus(QDataStream::WriteFailed);
        return;
    }
    fStream << quint64(payload);
    if (!device->seek(end))
        fStream.setStatus(QDataStream::WriteFailed);
}

TDataStreamAdaptor::TNext TDataStreamAdaptor::readHeader(quint64 &length)
{
    length = 0;
    const qint64 left = fStream.bytesLeft();
    if (left == 0)
        return endNext;
    QIODevice *device = fStream.fLimited->device();
    const qint64 before = device->pos();
    char header[cHeaderSize] = {};
    const qint64 got = device->read(header, qMin<qint64>(left, cHeaderSize));
    if (got < qint64(sizeof(quint32)) || qFromBigEndian<quint32>(header) != cMarker) {
        device->seek(before);
        return otherNext;
    }
    if (got < cHeaderSize) {
        device->seek(before);
        if (!fStream.isTolerant())
            return corruptNext;
        fStream.fTruncated = true;
        device->seek(before + left);
        return endNext;
    }
    length = qFromBigEndian<quint64>(header + sizeof(quint32));
    const quint64 room = quint64(left - cHeaderSize);
    if (length <= room)
        return blockNext;
    if (fStream.isTolerant()) {
        fStream.fTruncated = true;
        length = room;
        return blockNext;
    }
    device->seek(before);
    return corruptNext;
}

bool TDataStreamAdaptor::enter(quint64 length)
{
    TLimitedDevice &limited = *fStream.fLimited;
    fDepth = limited.depth();
    if (fDepth >= cMaxDepth) {
        fStream.setStatus(QDataStream::ReadCorruptData);
        return false;
    }
    fEnd = limited.device()->pos() + qint64(length);
    limited.pushLimit(fEnd);
    fState = entered;
    return length > 0;
}

bool TDataStreamAdaptor::hasData()
{
    if (!fStream.isGood())
        return false;
    if (fState == entered)
        return fStream.bytesLeft() > 0;
    if (fState != idle)
        return false;
    quint64 length = 0;
    switch (readHeader(length)) {
    case blockNext:
        return enter(length);
    case corruptNext:
        fStream.setStatus(QDataStream::ReadCorruptData);
        return false;
    case endNext:
    case otherNext:
        break;
    }
    fState = absent;
    return false;
}

void TDataStreamAdaptor::skipData()
{
    TLimitedDevice &limited = *fStream.fLimited;
    if (fState == entered) {
        // seeks whatever the status is, so that a reader that restores the status goes on at the right place
        limited.dropLimits(fDepth);
        limited.device()->seek(fEnd);
        fState = idle;
        return;
    }
    const TState before = fState;
    fState = idle;
    if (before == absent || !fStream.isGood())
        return;
    quint64 length = 0;
    switch (readHeader(length)) {
    case blockNext:
        limited.device()->seek(limited.device()->pos() + qint64(length));
        break;
    case endNext:
        break;
    case otherNext:
    case corruptNext:
        fStream.setStatus(QDataStream::ReadCorruptData);
        break;
    }
}
