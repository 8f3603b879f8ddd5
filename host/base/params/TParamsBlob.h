#pragma once

#include <QByteArray>
#include <QString>

/// One named piece of raw bytes that parameters are read from: a header, a log, a sidecar. Bytes are implicitly shared,
/// so that one header may stand in the bundles of many spectra.
///
/// The blob of the data file itself ("datafile") has no content: it tells path, size and time.
class TParamsBlob
{
public:
    TParamsBlob() = default;
    /// Bytes that stood at `offset` of a file; a null array counts as an empty one.
    TParamsBlob(const QString &name, const QString &file, qint64 offset, const QByteArray &bytes);
    /// A file of which only size in bytes and time (ISO text) are kept.
    TParamsBlob(const QString &name, const QString &file, qint64 size, const QString &lastModified);

    QString name() const { return fName; }
    QString file() const { return fFile; }
    void setFile(const QString &file) { fFile = file; }
    /// Position of the first byte in the file.
    qint64 offset() const { return fOffset; }
    /// Bytes of the piece, or of the whole file where the content is not kept.
    qint64 size() const { return hasContent() ? fBytes.size() : fFileSize; }
    const QByteArray &data() const { return fBytes; }
    bool hasContent() const { return !fBytes.isNull(); }
    /// Time of the file when it was read, ISO text; null where it was not kept.
    QString lastModified() const { return fLastModified; }

private:
    QString fName;
    QString fFile;
    qint64 fOffset = 0;
    qint64 fFileSize = 0;
    QByteArray fBytes;
    QString fLastModified;
};

Q_DECLARE_TYPEINFO(TParamsBlob, Q_MOVABLE_TYPE);
