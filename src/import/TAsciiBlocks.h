#pragma once

#include <QByteArray>
#include <QtGlobal>

class QIODevice;

/// Text of a random-access device, read forward in blocks of whole lines, so that a large file needs little memory.
class TAsciiBlocks
{
public:
    /// Reads [from, to) of the device, which is not owned.
    TAsciiBlocks(QIODevice *device, qint64 from, qint64 to);

    /// The next block, which ends behind a line end or with the text; false when there is none. A line longer than a
    /// block makes the block longer. What a device fails to give counts as the end of the text.
    bool next();
    /// The block at hand, until the next call of next().
    const char *begin() const { return fBuffer.constData(); }
    const char *end() const { return fBuffer.constData() + fBlockSize; }

private:
    bool readMore();

    QIODevice *fDevice;
    qint64 fLeft; // bytes of the text that are still in the device
    QByteArray fBuffer;
    int fFilled = 0;
    int fBlockSize = 0;
};
