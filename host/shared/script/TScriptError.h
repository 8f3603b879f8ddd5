#pragma once

#include <QString>
#include <QStringList>

/// Why a script ended early.
struct TScriptError
{
    QString fMessage;
    QString fFile; // name as it was run
    int fLine = 0; // from 1; 0 when it is not known
    QStringList fBacktrace;
    bool fIsStopped = false;

    /// "FILE, line N: MESSAGE".
    QString text() const;
};
