#pragma once

#include <QString>
#include <QStringList>

/// What reading a document came to.
struct TLoadReport
{
    bool fOk = false;
    QString fError;        // where and why it ended, in words
    qint64 fPosition = -1; // byte at which it ended
    bool fTruncated = false;
    int fItems = 0;        // that were read whole
    QStringList fWarnings; // what was kept without being understood, and what was left out
};
