#pragma once

#include <QString>
#include <QVariant>

/// One line of a history entry: what was set, to what, and what it was.
struct THistoryParameter
{
    QString fName;
    QVariant fValue;
    QVariant fOldValue; // invalid when there is nothing to compare with
    QString fText;      // shown instead of the value when not empty
};
