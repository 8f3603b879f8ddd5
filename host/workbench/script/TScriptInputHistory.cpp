#include "TScriptInputHistory.h"

#include "ScriptHabits.h"
#include "settings/TDefaultsIni.h"

TScriptInputHistory::TScriptInputHistory()
    : fEntries(ScriptHabits::keepsHistory() ? TDefaultsIni().value(ScriptHabits::cHistoryKey).toStringList()
                                            : QStringList())
    , fPlace(fEntries.size())
{
}

void TScriptInputHistory::add(const QString &text)
{
    if (fEntries.isEmpty() || fEntries.last() != text)
        fEntries.append(text);
    fEntries = fEntries.mid(qMax(0, fEntries.size() - cMost));
    fPlace = fEntries.size();
    fDraft.clear();
    if (ScriptHabits::keepsHistory())
        TDefaultsIni().setValue(ScriptHabits::cHistoryKey, fEntries);
}

QString TScriptInputHistory::older(const QString &shown)
{
    if (!hasOlder())
        return shown;
    if (!hasNewer())
        fDraft = shown;
    return fEntries.at(--fPlace);
}

QString TScriptInputHistory::newer()
{
    if (hasNewer())
        ++fPlace;
    return hasNewer() ? fEntries.at(fPlace) : fDraft;
}
