#include "params/TParamsBlob.h"

TParamsBlob::TParamsBlob(const QString &name, const QString &file, qint64 offset, const QByteArray &bytes)
    : fName(name)
    , fFile(file)
    , fOffset(offset)
    , fBytes(bytes.isNull() ? QByteArray("") : bytes)
{
}

TParamsBlob::TParamsBlob(const QString &name, const QString &file, qint64 size, const QString &lastModified)
    : fName(name)
    , fFile(file)
    , fFileSize(size)
    , fLastModified(lastModified)
{
}
