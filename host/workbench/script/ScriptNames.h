#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

class QScriptEngine;

/// A name that can stand at a place of a script.
struct TScriptName
{
    QString fName;
    bool fIsFunction = false;
};

/// Finds what can stand behind a dot, or alone. Reads properties only and calls nothing of the script.
namespace ScriptNames {

/// The members of what a path of names and numbers leads to, sorted; globals and words of the language for an empty
/// one. None when the path leads nowhere.
QVector<TScriptName> members(QScriptEngine &engine, const QStringList &path);
/// Those that begin with the letters, whether small or large.
QVector<TScriptName> matching(const QVector<TScriptName> &names, const QString &prefix);
/// What all of them begin with.
QString commonBegin(const QVector<TScriptName> &names);

} // namespace ScriptNames
