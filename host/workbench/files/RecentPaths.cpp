#include "RecentPaths.h"

#include "settings/TDefaultsIni.h"

QStringList RecentPaths::list(const QString &key)
{
    return TDefaultsIni().value(key, QStringList()).toStringList();
}

void RecentPaths::add(const QString &key, const QString &path, int most)
{
    QStringList paths = list(key);
    paths.removeAll(path);
    paths.prepend(path);
    TDefaultsIni().setValue(key, QStringList(paths.mid(0, most)));
}

void RecentPaths::forget(const QString &key, const QString &path)
{
    QStringList paths = list(key);
    if (paths.removeAll(path) > 0)
        TDefaultsIni().setValue(key, paths);
}
