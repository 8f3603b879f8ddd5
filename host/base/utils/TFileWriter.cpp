#include "utils/TFileWriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int cMaxLinks = 40; // as many as the system follows

/// The path with the links in its folder resolved. A relative link starts from there, and Qt resolves ".." by the
/// letters of a path alone.
QString inRealFolder(const QString &path)
{
    const QFileInfo info(path);
    return info.dir().canonicalPath() + '/' + info.fileName();
}

/// The place to which a path leads over symbolic links; it need not exist.
QString withoutLinks(const QString &path)
{
    QString place = path;
    for (int i = 0; i < cMaxLinks && QFileInfo(place).isSymLink(); ++i)
        place = QFileInfo(inRealFolder(place)).symLinkTarget();
    return place;
}

/// Whether the bytes are on the disk, or the file system has no way to say so.
bool sync(int handle)
{
    return fsync(handle) == 0 || errno == EINVAL || errno == ENOTSUP;
}

} // namespace

TFileWriter::TFileWriter(const QString &path)
    : fFile(withoutLinks(path))
{
}

bool TFileWriter::TFile::note(bool isGood, const QString &reason)
{
    if (!isGood && fFailure.isEmpty())
        fFailure = reason;
    return isGood;
}

bool TFileWriter::TFile::noteWrite(bool isGood)
{
    if (isGood || !fFailure.isEmpty())
        return isGood;
    // where a part of the bytes was taken, Qt does not know why the rest was not; the next byte meets the same
    const char byte = 0;
    const bool isRefused = ::write(handle(), &byte, 1) < 0;
    return note(false, isRefused ? qt_error_string(errno) : errorString());
}

bool TFileWriter::TFile::seek(qint64 offset)
{
    return noteWrite(QSaveFile::seek(offset)); // which writes what is in the buffer
}

qint64 TFileWriter::TFile::writeData(const char *data, qint64 size)
{
    const qint64 written = QSaveFile::writeData(data, size);
    noteWrite(written == size && error() == NoError);
    return written;
}

bool TFileWriter::open()
{
    const QFileInfo place(fFile.fileName());
    if (place.isSymLink())
        return fFile.note(false, qt_error_string(ELOOP));
    if (place.isDir())
        return fFile.note(false, qt_error_string(EISDIR));
    if (place.exists() && !place.isFile()) // to rename over a device is not to write to it
        return fFile.note(false, QCoreApplication::translate("TFileWriter", "it is no file that can be replaced"));
    const bool isOpen = fFile.open(QIODevice::WriteOnly);
    return fFile.note(isOpen, fFile.errorString());
}

bool TFileWriter::makePrivate()
{
    const bool isPrivate = fchmod(fFile.handle(), S_IRUSR | S_IWUSR) == 0;
    return fFile.note(isPrivate, qt_error_string(errno));
}

bool TFileWriter::commit()
{
    // QSaveFile::commit would not notice that what is still in its buffer cannot be written
    if (!fFile.noteWrite(fFile.flush()) || !fFile.fFailure.isEmpty())
        return false;
    const bool isSynced = sync(fFile.handle());
    if (!fFile.note(isSynced, qt_error_string(errno)))
        return false;
    const bool isInPlace = fFile.commit();
    return fFile.note(isInPlace, qt_error_string(errno)); // Qt knows the reason of some of its steps only
}

bool TFileWriter::write(const QString &path, const QByteArray &bytes, QString *error)
{
    TFileWriter file(path);
    if (file.open()) {
        file.device()->write(bytes);
        if (file.commit())
            return true;
    }
    *error = file.error();
    return false;
}
