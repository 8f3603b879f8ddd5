#include "TCliSpool.h"

#include <QDir>
#include <QFile>
#include <QPair>
#include <QRegularExpression>
#include <QSet>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr char cStandardInput[] = "-";
constexpr size_t cPart = 1 << 20;

QString systemError(int code)
{
    return qt_error_string(code);
}

bool statusOf(const QString &file, struct stat &status)
{
    return (file == cStandardInput ? fstat(STDIN_FILENO, &status) : stat(QFile::encodeName(file), &status)) == 0;
}

/// A file that no folder holds; -1 where none can be made.
int namelessFile()
{
    const QByteArray folder = QFile::encodeName(QDir::tempPath());
    const int file = open(folder, O_TMPFILE | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file >= 0)
        return file;
    QByteArray name = folder + "/zarnu-XXXXXX"; // a file system that knows none
    const int named = mkostemp(name.data(), O_CLOEXEC);
    if (named >= 0)
        unlink(name);
    return named;
}

bool writeAll(int file, const char *bytes, ssize_t size)
{
    while (size > 0) {
        const ssize_t written = write(file, bytes, size_t(size));
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        bytes += written;
        size -= written;
    }
    return true;
}

} // namespace

TCliSpool::~TCliSpool()
{
    if (fFile >= 0)
        close(fFile);
}

bool TCliSpool::isStream(const QString &file)
{
    struct stat status = {};
    if (file == cStandardInput)
        return true;
    return statusOf(file, status) && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode) && !S_ISBLK(status.st_mode);
}

QString TCliSpool::readTwice(const QStringList &files)
{
    QSet<QPair<quint64, quint64>> seen;
    for (const QString &file : files) {
        struct stat status = {};
        if (!isStream(file) || !statusOf(file, status))
            continue;
        const QPair<quint64, quint64> which(status.st_dev, status.st_ino);
        if (seen.contains(which))
            return file;
        seen.insert(which);
    }
    return QString();
}

bool TCliSpool::parseLimit(const QString &text, qint64 &bytes)
{
    static const QRegularExpression cForm("^(\\d{1,12})([KMG]?)$");
    const QRegularExpressionMatch match = cForm.match(text);
    const int shift = 10 * (1 + QString("KMG").indexOf(match.captured(2)));
    bytes = match.captured(1).toLongLong() << (match.captured(2).isEmpty() ? 0 : shift);
    return match.hasMatch() && bytes > 0 && bytes >> 50 == 0;
}

bool TCliSpool::copy(int from, qint64 limit, QString &error) const
{
    std::vector<char> part(cPart);
    for (qint64 all = 0;;) {
        const ssize_t got = read(from, part.data(), part.size());
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            error = systemError(errno);
        else if ((all += got) > limit)
            error = QString("it is longer than %1 bytes; --spool-limit allows more").arg(limit);
        else if (!writeAll(fFile, part.data(), got))
            error = QString("it cannot be kept in %1: %2").arg(QDir::tempPath(), systemError(errno));
        if (got == 0 || !error.isEmpty())
            return error.isEmpty();
    }
}

bool TCliSpool::take(const QString &file, qint64 limit, QString &error)
{
    const bool isStandard = file == cStandardInput;
    const int from = isStandard ? STDIN_FILENO : open(QFile::encodeName(file), O_RDONLY | O_CLOEXEC);
    if (from < 0) {
        error = systemError(errno);
        return false;
    }
    fFile = namelessFile();
    const bool isKept = fFile >= 0 && fFolder.isValid() && QFile::link(QString("/proc/self/fd/%1").arg(fFile), path());
    if (!isKept)
        error = QString("it cannot be kept in %1: %2").arg(QDir::tempPath(), systemError(errno));
    const bool isWhole = isKept && copy(from, limit, error);
    if (!isStandard)
        close(from);
    return isWhole;
}

QString TCliSpool::path() const
{
    return fFolder.filePath(cName);
}
