#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

namespace Utils {
namespace FS {

/// MD5 of a file's content in lower-case hex; empty when it cannot be read.
QByteArray md5Sum(const QString &path);

/// MD5 of every file of a directory (QByteArray as by md5Sum) by its path relative to it, hidden files included. Links
/// are not followed and not listed. Empty for what is no directory.
QVariantMap directoryMD5Sum(const QString &path, bool recursive);

/// What names the file to which a path leads over all links: two paths have the same key when they are two names of one
/// file, hard links and other spellings included. Empty where there is no file.
QByteArray fileKey(const QString &path);

/// A folder that came with the program, such as "samples" or "docs/guide": in share/kelmora of the prefix in which the
/// running program stands. The build folder has the same shape. Empty when there is none.
QString sharedFolder(const QString &name);

} // namespace FS
} // namespace Utils
