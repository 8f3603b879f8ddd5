#pragma once

#include <QSaveFile>

/// The one way in which the program writes a file: whole, or not at all.
///
/// The bytes go to a file without a name in the same folder (one with a name where the file system has no such), are
/// synced to the disk and take the place of an older file in one step. So neither a full disk, nor a failing one, nor a
/// kill leaves half a file or costs the older one. Permissions of the older file stay, and a symbolic link stays a
/// link: the file that it leads to is replaced. What is no regular file, such as a device or a folder, is refused.
class TFileWriter
{
public:
    explicit TFileWriter(const QString &path);

    /// False, with the reason in error(), when the place cannot be written.
    bool open();
    /// Only the user may read the file, whatever the permissions of an older one; to be called after open(). False,
    /// with the reason in error(), when that cannot be done.
    bool makePrivate();
    /// Where the bytes go, between open() and commit().
    QIODevice *device() { return &fFile; }
    /// Puts the file into its place. False, with the reason in error(), when a byte of it could not be written; what
    /// was in the place before stays then. Without a call nothing is written at all.
    bool commit();
    /// The reason of the first failure, in the words of the system: "No space left on device".
    QString error() const { return fFile.fFailure; }

    /// Writes a file of these bytes. False, with the reason, when that cannot be done.
    static bool write(const QString &path, const QByteArray &bytes, QString *error);

private:
    /// Keeps the first failure, which QSaveFile forgets with the next call.
    class TFile : public QSaveFile
    {
    public:
        using QSaveFile::QSaveFile;
        bool seek(qint64 offset) override;
        bool note(bool isGood, const QString &reason);
        bool noteWrite(bool isGood);

        QString fFailure;

    protected:
        qint64 writeData(const char *data, qint64 size) override;
    };

    TFile fFile;
};
