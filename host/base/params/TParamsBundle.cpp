#include "params/TParamsBundle.h"

#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

const QString cDatafileBlob = QStringLiteral("datafile");

constexpr int cMinStoredBlob = 4 + 4 + 8 + 4 + 4; // four lengths and the offset
constexpr int cMaxBlobs = 1000;                   // a spectrum has a handful

/// A sidecar is a temporary file whose random name would differ from run to run.
QString stableFileName(const QString &file)
{
    static const QRegularExpression cSidecar(QStringLiteral("(?:^|/)([^/]*-metadata\\.txt)\\.[A-Za-z]{6}$"));
    const QRegularExpressionMatch match = cSidecar.match(file);
    return match.hasMatch() ? match.captured(1) : file;
}

QByteArray readSlice(QIODevice &device, qint64 offset, qint64 length)
{
    const qint64 before = device.pos();
    const qint64 left = device.size() - offset;
    if (offset < 0 || left <= 0 || !device.seek(offset))
        return QByteArray();
    const qint64 wanted = length < 0 ? left : qMin(length, left);
    QByteArray bytes = device.read(qMin<qint64>(wanted, TParamsBundle::cMaxBlobSize));
    device.seek(before);
    return bytes;
}

} // namespace

void TParamsBundle::insert(const TParamsBlob &blob)
{
    for (TParamsBlob &present : fBlobs) {
        if (present.name() == blob.name()) {
            present = blob;
            return;
        }
    }
    fBlobs.append(blob);
}

void TParamsBundle::renameFile(const QString &name)
{
    for (TParamsBlob &blob : fBlobs) {
        if (blob.file() == fFileName)
            blob.setFile(name);
    }
    fFileName = name;
}

void TParamsBundle::addParamsBlob(const QString &name, const QString &file, QIODevice *stream, qint64 offset,
                                  qint64 length)
{
    QByteArray bytes;
    if (stream) {
        bytes = readSlice(*stream, offset, length);
    } else {
        QFile device(file);
        if (device.open(QIODevice::ReadOnly))
            bytes = readSlice(device, offset, length);
    }
    insert(TParamsBlob(name, stableFileName(file), offset, bytes));
}

void TParamsBundle::addParamsBlob(const QString &name, const QString &file, qint64 offset, const QByteArray &bytes)
{
    insert(TParamsBlob(name, stableFileName(file), offset, bytes));
}

TParamsBlob TParamsBundle::datafileBlob(const QString &file)
{
    const QFileInfo info(file);
    const QString time = info.exists() ? info.lastModified().toUTC().toString(Qt::ISODate) : QString();
    return TParamsBlob(cDatafileBlob, file, info.size(), time);
}

const TParamsBlob &TParamsBundle::operator[](const QString &name) const
{
    static const TParamsBlob cNone;
    for (const TParamsBlob &blob : fBlobs) {
        if (blob.name() == name)
            return blob;
    }
    return cNone;
}

bool TParamsBundle::contains(const QString &name) const
{
    for (const TParamsBlob &blob : fBlobs) {
        if (blob.name() == name)
            return true;
    }
    return false;
}

QVariantMap TParamsBundle::toVariantMap() const
{
    QVariantMap map;
    for (const TParamsBlob &blob : fBlobs)
        map.insert(blob.name(), QVariantMap{{QStringLiteral("Offset"), blob.offset()}, //
                                            {QStringLiteral("Size"), blob.size()}});
    map.insert(QStringLiteral("FileFormat"), fFileFormat);
    map.insert(QStringLiteral("FileName"), fFileName);
    return map;
}

// A blob without content has no offset in its file, so its size stands in that field.
TDataStream &operator<<(TDataStream &stream, const TParamsBundle &bundle)
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    stream << qint32(bundle.fileFormat()) << bundle.fileName() << qint32(bundle.blobs().size());
    for (const TParamsBlob &blob : bundle.blobs())
        stream << blob.name() << blob.file() << qint64(blob.hasContent() ? blob.offset() : blob.size()) << blob.data()
               << blob.lastModified();
    return stream;
}

TDataStream &operator>>(TDataStream &stream, TParamsBundle &bundle)
{
    bundle = TParamsBundle();
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        stream >> bundle.fFileFormat >> bundle.fFileName;
        const int count = stream.readCount(cMinStoredBlob);
        if (count > cMaxBlobs)
            stream.setStatus(QDataStream::ReadCorruptData);
        for (int i = 0; i < count && stream.isGood(); ++i) {
            QString name;
            QString file;
            qint64 position = 0;
            QByteArray bytes;
            QString lastModified;
            stream >> name >> file >> position >> bytes >> lastModified;
            bundle.insert(bytes.isNull() ? TParamsBlob(name, file, qMax<qint64>(0, position), lastModified)
                                         : TParamsBlob(name, file, position, bytes));
        }
        if (!stream.isGood())
            bundle = TParamsBundle();
    }
    block.skipData();
    return stream;
}
