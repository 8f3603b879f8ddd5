#pragma once

#include "commands/TCommandHistory.h"
#include "history/THistoryCommand.h"

#include <QStringList>

/// The parameters of the newest step that is not undone.
inline QList<THistoryParameter> doneParams(const TCommandHistory &history)
{
    QList<THistoryParameter> params;
    for (const THistoryCommand *entry : history.entries()) {
        if (!entry->isUndone())
            params = entry->params();
    }
    return params;
}

inline std::string doneNames(const TCommandHistory &history)
{
    QStringList names;
    for (const THistoryParameter &param : doneParams(history))
        names.append(param.fName);
    return names.join('|').toStdString();
}
