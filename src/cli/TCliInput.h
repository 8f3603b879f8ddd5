#pragma once

#include "canvas/TCanvasItemList.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <memory>

class TCliSpool;
struct TCliEnvironment;

/// One input of a command, opened into the host's document.
struct TCliInput
{
    QString fFile; // as it was given, or TCliSpool::cName
    int fCode = 0; // 0, or the code of what failed
    QString fReason;
    int fFormat = 0; // number of the file format; 0 for a document
    QString fFormatName;
    QByteArray fMd5;   // empty for a file that cannot be read
    QVariantMap fSums; // md5 by file name, where several files were gathered
    bool fIsDocument = false;
    TCanvasItemList fItems;            // the spectrum items, in the order of the document, which owns them
    QStringList fNotes;                // about what was left out
    std::shared_ptr<TCliSpool> fSpool; // the copy of what can be read only once

    bool isOk() const { return fCode == 0; }
    /// Where it is read.
    QString path() const;
    void fail(int code, const QString &reason);
    /// "Filename", "md5sum" and the program's "version".
    QVariantMap provenance() const;
};

/// How inputs are opened.
namespace TCliInputs {

/// Names an input and copies one that can be read only once, which fails where that cannot be done.
TCliInput take(const QString &file, const TCliEnvironment &environment);

/// Opens one that was taken into a fresh document of the host: imports it, or loads it when it is a document. `format`
/// names the converter outright; empty leaves it to the converters. Afterwards ids come from a series that the file's
/// content determines. One that failed stays as it is.
void load(TCliInput &input, const QString &format, const TCliEnvironment &environment);

/// Both.
TCliInput open(const QString &file, const QString &format, const TCliEnvironment &environment);

/// The newest modification time of files; that of 1970 when none has one, as streams.
QDateTime newestTime(const QStringList &files);

} // namespace TCliInputs
