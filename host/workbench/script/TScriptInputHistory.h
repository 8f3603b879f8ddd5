#pragma once

#include <QString>
#include <QStringList>

/// What was typed into the console, kept in the settings, and the way back and forth through it.
class TScriptInputHistory
{
public:
    static constexpr int cMost = 200;

    TScriptInputHistory();

    const QStringList &entries() const { return fEntries; }
    /// Takes an input and goes behind the last; the same twice in a row stands there once.
    void add(const QString &text);
    bool hasOlder() const { return fPlace > 0; }
    bool hasNewer() const { return fPlace < fEntries.size(); }
    /// The input before the one that is shown; `shown` is kept when it is none of the history.
    QString older(const QString &shown);
    /// The one behind it, at last what was kept.
    QString newer();

private:
    QStringList fEntries; // the oldest first
    int fPlace;
    QString fDraft;
};
