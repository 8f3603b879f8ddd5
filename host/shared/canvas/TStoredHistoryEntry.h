#pragma once

#include "history/THistoryParameter.h"

#include <QDateTime>
#include <QList>
#include <QUuid>

/// A history entry as documents keep it.
struct TStoredHistoryEntry
{
    QDateTime fTime;
    QString fDescription;
    QString fText;
    QUuid fItemId;
    bool fUndone = false;
    QList<THistoryParameter> fParams;
};
