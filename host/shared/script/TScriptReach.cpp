#include "script/TScriptReach.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

/// The path without links. Of a file that is not there yet: of the nearest folder above it that is. Empty for a link to
/// nothing, since what is written there comes up wherever it leads.
QString resolved(const QString &path)
{
    QFileInfo info(path);
    while (!info.exists() && !info.isSymLink() && !info.isRoot())
        info.setFile(info.path());
    return info.canonicalFilePath();
}

} // namespace

bool TScriptReach::setFolder(const QString &folder)
{
    const QFileInfo info(folder);
    if (info.isDir())
        fFolder = info.canonicalFilePath();
    return info.isDir();
}

QString TScriptReach::whyNotRead(const QString &path) const
{
    const QString below = fFolder.endsWith('/') ? fFolder : fFolder + '/';
    const bool isWithin = fFolder.isEmpty() || (resolved(path) + '/').startsWith(below);
    return isWithin ? QString()
                    : QCoreApplication::translate("TScriptReach",
                                                  "This is not below %1, and the script may reach no other folder.")
                          .arg(fFolder);
}

QString TScriptReach::whyNotWrite(const QString &path) const
{
    return fIsReadOnly ? QCoreApplication::translate("TScriptReach", "The script may only read.") : whyNotRead(path);
}
