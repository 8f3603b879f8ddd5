#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QLockFile>
#include <QString>
#include <memory>
#include <vector>

class TDocument;
struct TLoadReport;

/// What stands in an autosave in front of the document.
struct TAutosaveInfo
{
    QString fDocumentPath; // empty for a document that was never saved
    QDateTime fSaved;      // of the document's file as it was opened or saved; invalid without one
    QDateTime fAutosaved;
    qint64 fOwner = 0;     // id of the process that wrote it
    int fSteps = 0;        // that the document's file does not have
    QByteArray fThumbnail; // PNG of the page that was shown
};

/// A copy of a document in the state folder, "<document id>.autosave", and the lock beside it that tells whether the
/// process that owns it still lives. Only the owner of the lock may write or remove the copy.
class TAutosaveFile
{
public:
    /// The folder of the desktop's state, made when it is missing: "kelmora" under XDG_STATE_HOME. Only the user may
    /// look into it, since it holds what he has not saved.
    static QString defaultFolder();
    /// A copy for a document. A name that is taken, by another process with the same document or by a copy that nobody
    /// has decided on yet, is passed over for the next one, so that none is overwritten. Null when the folder cannot
    /// be written.
    static std::unique_ptr<TAutosaveFile> claim(const QString &folder, const TDocument &document);
    /// The copies without a living owner; they belong to the caller from then on.
    static std::vector<std::unique_ptr<TAutosaveFile>> abandoned(const QString &folder);

    QString path() const { return fPath; }
    /// Writes the copy beside its place and renames it, so that a crash leaves an older one whole.
    bool write(const TDocument &document, const TAutosaveInfo &info, QString *error) const;
    /// False when the file does not begin like an autosave.
    bool readInfo(TAutosaveInfo &info) const;
    /// Reads the document, modified and under its own name; null, with the reason in the report, when it cannot be
    /// read.
    std::unique_ptr<TDocument> read(TLoadReport &report) const;
    /// Removes the copy.
    void remove() const;

private:
    explicit TAutosaveFile(const QString &path);
    bool lock() { return fLock.tryLock(0); }

    QString fPath;
    QLockFile fLock; // given up at the end
};
