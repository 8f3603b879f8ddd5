#pragma once

#include "commands/TScriptStep.h"

#include <QDir>
#include <QHash>
#include <QSet>
#include <QStringList>

/// Writes steps as the text of a script that does them again. Items become variables: those that a step made are taken
/// from its result, others from their place in the document.
class TScriptWriter
{
public:
    /// One undo step: what its commands are called by. Steps that cannot be told become remarks.
    struct TUndoStep
    {
        QString fText; // the description
        QVector<TScriptStep> fCommands;
    };

    /// The whole text; `remark` stands on top, a line of the text each line of it. Variables are made only where they
    /// are used. Files below `folder`, where the script is going to stand, are told from there.
    static QString script(const QVector<TUndoStep> &steps, const QString &remark, const QDir &folder = QDir());
    /// The lines of one more undo step, of which long ones are broken, with variables for all that it made. For a
    /// console, which hears of steps one by one.
    QStringList add(const TUndoStep &step);

    /// A value as a script has it; items as the variables that they have here.
    QString literal(const QVariant &value) const;

private:
    QStringList linesOf(const TScriptStep &step);
    QString call(const TScriptStep &step) const;
    QString fitted(const QVariant &value, int indent, int column) const;
    void introduce(const QVariant &value, QStringList &lines);
    void introduce(const TScriptItem &item, QStringList &lines);
    void takeMade(const TScriptStep &step, const QString &call, QStringList &lines);
    QString newName(const QString &wish);
    static void collect(const QVariant &value, QSet<QUuid> &ids);

    QHash<QUuid, QString> fVariables;
    QSet<QString> fNames;
    QSet<QUuid> fUsed; // of the whole script
    QDir fFolder;
    bool fKeepsAll = true;
};
