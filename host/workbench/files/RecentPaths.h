#pragma once

#include <QString>
#include <QStringList>

/// Lists of files used last, the latest first, each under a key of the settings.
namespace RecentPaths {

QStringList list(const QString &key);
/// Puts a path first; what is behind the `most` first goes.
void add(const QString &key, const QString &path, int most);
void forget(const QString &key, const QString &path);

} // namespace RecentPaths
