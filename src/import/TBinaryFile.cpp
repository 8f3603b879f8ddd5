#include "TBinaryFile.h"

#include <QFileInfo>

static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "fields are copied as they stand in the files");

namespace {

constexpr qint64 cMaxBytes = 1024 * 1024 * 1024; // of one piece in memory

} // namespace

TBinaryFile::TBinaryFile(const QString &path)
    : fFile(path)
{
    if (!QFileInfo(path).isDir() && fFile.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        fSize = fFile.size();
}

qint64 TBinaryFile::available(qint64 offset, qint64 count, qint64 width) const
{
    if (offset < 0 || count <= 0 || offset >= fSize)
        return 0;
    return qMin(count, (fSize - offset) / width);
}

const char *TBinaryFile::moveWindow(qint64 offset, qint64 bytes) const
{
    if (!has(offset, bytes) || bytes > cWindow)
        return nullptr;
    if (!fFile.seek(offset))
        return nullptr;
    fWindow.resize(int(qMin(cWindow, fSize - offset)));
    fWindowStart = offset;
    qint64 filled = 0;
    while (filled < fWindow.size()) {
        const qint64 got = fFile.read(fWindow.data() + filled, fWindow.size() - filled);
        if (got <= 0)
            break;
        filled += got;
    }
    fWindow.truncate(int(filled)); // a file that shrank meanwhile
    return bytes <= filled ? fWindow.constData() : nullptr;
}

QByteArray TBinaryFile::bytes(qint64 offset, qint64 count) const
{
    const qint64 there = qMin(available(offset, count, 1), cMaxBytes);
    if (there <= 0)
        return {};
    if (const char *inWindow = window(offset, there))
        return QByteArray(inWindow, int(there));
    return fFile.seek(offset) ? fFile.read(there) : QByteArray();
}

QByteArray TBinaryFile::text(qint64 offset, qint64 count) const
{
    const QByteArray all = bytes(offset, count);
    const int end = all.indexOf('\0');
    return end < 0 ? all : all.left(end);
}
