#pragma once

#include <QIODevice>
#include <QVector>

/// A view of another device whose readers cannot pass the end of the innermost entered block.
///
/// It is sequential and unbuffered on purpose: the position is always that of the device below, so both may be used
/// in turn. The device below is not owned.
class TLimitedDevice : public QIODevice
{
public:
    explicit TLimitedDevice(QIODevice *device);

    QIODevice *device() const { return fDevice; }
    /// Bytes up to the innermost limit, or up to the device's end without one; never negative.
    qint64 bytesLeft() const;
    /// The position in the device below at which reading ends.
    qint64 limit() const;
    int depth() const { return fLimits.size(); }
    void pushLimit(qint64 position) { fLimits.append(position); }
    void dropLimits(int depth) { fLimits.resize(depth); }

    bool isSequential() const override { return true; }
    bool atEnd() const override { return bytesLeft() == 0; }
    qint64 bytesAvailable() const override { return bytesLeft(); }

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 size) override;

private:
    QIODevice *fDevice;
    QVector<qint64> fLimits; // positions, outermost block first
};
