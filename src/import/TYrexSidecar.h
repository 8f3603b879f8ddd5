#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QTemporaryFile>

class TParamsBundle;

/// The text file in which a binary reader leaves the strings of a file for the parameter parser to pick up:
/// lines "<Name>_begin", one line of text, "<Name>_end" for each section, and a last line "TmpFile_end". Bytes are
/// written as they stood in the data file.
///
/// It lives in the folder of temporary files, named after the data file, as long as this object.
class TYrexSidecar
{
public:
    /// Characters of a text that would break its line; they become blanks.
    enum TCleaning { cHistory, cComment };

    static constexpr int cReadLimit = 0x20000; // bytes that are read back; the rest is lost

    explicit TYrexSidecar(const QString &dataFile);

    bool isOpen() const { return fFile.isOpen(); }
    void writeSection(const QByteArray &name, QByteArray text, TCleaning cleaning);
    /// A free line "key: value".
    void writeLine(const QByteArray &line);
    /// Writes the closing line.
    void finish();
    /// Gives the whole file to a spectrum as the blob of that name. What could not be written is an error of the log.
    void addTo(TParamsBundle &bundle, const QString &marker);

    /// The sections of a sidecar's text by name, the last of equal ones; what stands behind 128 KiB or the closing line
    /// is ignored.
    static QMap<QString, QString> sections(const QByteArray &text);

private:
    QString fDataFile;
    QTemporaryFile fFile;
};
