#pragma once

#include "params/TParamsBlob.h"

#include <QVariant>
#include <QVector>

class QIODevice;
class TDataStream;

/// The raw sources of a spectrum's parameters, by name, with the file they come from. They stay with the spectrum, so
/// that its parameters can be evaluated again when the file is gone.
class TParamsBundle
{
public:
    static constexpr int cNoFormat = 23;                  // no file format is known yet
    static constexpr int cMaxBlobSize = 64 * 1024 * 1024; // bytes; headers and logs, never data

    /// Number of the file format, which chooses the parser.
    int fileFormat() const { return fFileFormat; }
    void setFileFormat(int format) { fFileFormat = format; }
    /// Path of the data file as it was given.
    QString fileName() const { return fFileName; }
    void setFileName(const QString &path) { fFileName = path; }
    /// Lets the file have another name everywhere, also in the blobs that were read from it.
    void renameFile(const QString &name);

    /// Adds `length` bytes from `offset` (-1: up to the end), read at once from the open `stream` or, when that is
    /// null, from the file. What lies beyond the end or cMaxBlobSize is left out; a file that cannot be read gives an
    /// empty blob. A blob of that name is replaced. The position of the stream stays as it was. The name of a
    /// temporary sidecar is kept without its random part.
    void addParamsBlob(const QString &name, const QString &file, QIODevice *stream, qint64 offset, qint64 length);
    /// Adds bytes in memory that stood at `offset` of the file. They are shared, not copied.
    void addParamsBlob(const QString &name, const QString &file, qint64 offset, const QByteArray &bytes);
    /// Adds the data file itself under "datafile": path, size and time, never the content.
    void addDatafileBlob(const QString &file) { insert(datafileBlob(file)); }
    /// The same for many bundles of one file, which is then asked once.
    void addDatafileBlob(const TParamsBlob &blob) { insert(blob); }
    static TParamsBlob datafileBlob(const QString &file);

    /// The blob of that name; one without content and name when there is none.
    const TParamsBlob &operator[](const QString &name) const;
    bool contains(const QString &name) const;
    const QVector<TParamsBlob> &blobs() const { return fBlobs; }

    /// "FileFormat", "FileName", and under each blob's name a map with "Offset" and "Size".
    QVariantMap toVariantMap() const;

private:
    friend TDataStream &operator>>(TDataStream &stream, TParamsBundle &bundle);
    void insert(const TParamsBlob &blob);

    int fFileFormat = cNoFormat;
    QString fFileName;
    QVector<TParamsBlob> fBlobs; // in the order of their first addition
};

TDataStream &operator<<(TDataStream &stream, const TParamsBundle &bundle);
/// Replaces the bundle; a stream without one or a corrupt one gives an empty bundle.
TDataStream &operator>>(TDataStream &stream, TParamsBundle &bundle);
