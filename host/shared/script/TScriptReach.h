#pragma once

#include <QString>

/// Which files a script may reach. Without limits: all that its user may.
class TScriptReach
{
public:
    /// Reads anywhere and writes nothing.
    void setReadOnly(bool isReadOnly) { fIsReadOnly = isReadOnly; }
    /// Reads and writes below that folder only. False, and nothing changes, for one that is not there.
    bool setFolder(const QString &folder);

    /// Why the file at a whole path is not read, or written; empty when it may be. Links are resolved, those to
    /// nothing included, so that none leads out of the folder.
    QString whyNotRead(const QString &path) const;
    QString whyNotWrite(const QString &path) const;
    /// Whether there is any limit.
    bool isLimited() const { return fIsReadOnly || !fFolder.isEmpty(); }

private:
    bool fIsReadOnly = false;
    QString fFolder; // without links
};
