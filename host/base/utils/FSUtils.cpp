#include "utils/FSUtils.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <sys/stat.h>

namespace Utils {
namespace FS {

QByteArray md5Sum(const QString &path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Md5);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        return QByteArray();
    return hash.result().toHex();
}

QVariantMap directoryMD5Sum(const QString &path, bool recursive)
{
    QVariantMap sums; // a map, so the files stand in the order of their names
    if (path.isEmpty() || !QFileInfo(path).isDir())
        return sums;
    const QDir dir(path);
    QDirIterator files(path, QDir::Files | QDir::Hidden | QDir::NoSymLinks,
                       recursive ? QDirIterator::Subdirectories : QDirIterator::NoIteratorFlags);
    while (files.hasNext()) {
        const QString file = files.next();
        sums.insert(dir.relativeFilePath(file), md5Sum(file));
    }
    return sums;
}

QByteArray fileKey(const QString &path)
{
    struct stat facts = {};
    if (path.isEmpty() || stat(QFile::encodeName(path).constData(), &facts) != 0)
        return QByteArray();
    return QByteArray::number(quint64(facts.st_dev)) + ':' + QByteArray::number(quint64(facts.st_ino));
}

QString sharedFolder(const QString &name)
{
    const QFileInfo folder(QCoreApplication::applicationDirPath() + "/../share/kelmora/" + name);
    return folder.isDir() ? folder.canonicalFilePath() : QString();
}

} // namespace FS
} // namespace Utils
