#include "stream/TLimitedDevice.h"

TLimitedDevice::TLimitedDevice(QIODevice *device)
    : fDevice(device)
{
    if (device && device->isOpen())
        open(device->openMode() | QIODevice::Unbuffered);
}

qint64 TLimitedDevice::limit() const
{
    if (!fLimits.isEmpty())
        return fLimits.last();
    return fDevice ? fDevice->size() : 0;
}

qint64 TLimitedDevice::bytesLeft() const
{
    return fDevice ? qMax<qint64>(0, limit() - fDevice->pos()) : 0;
}

qint64 TLimitedDevice::readData(char *data, qint64 maxSize)
{
    const qint64 size = qMin(maxSize, bytesLeft());
    return size > 0 ? fDevice->read(data, size) : 0;
}

qint64 TLimitedDevice::writeData(const char *data, qint64 size)
{
    return fDevice ? fDevice->write(data, size) : -1;
}
