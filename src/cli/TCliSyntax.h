#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// One option of a command. Help and man page tell those that are neither hidden nor planned.
struct TCliOption
{
    enum TState {
        cOffered,
        cPlanned, // known, and refused as not available in this version
        cHidden   // for calls of the program by itself
    };

    QString fName;     // "--format" or "-o"
    QString fArgument; // what the help calls it; empty for a switch
    QString fHelp;
    TState fState = cOffered;
    bool fRepeats = false; // may be given more than once

    bool takesArgument() const { return !fArgument.isEmpty(); }
};

/// What may stand on the command line behind a command's name.
struct TCliSyntax
{
    QString fName;
    QString fSummary; // one line
    QString fOperands = QStringLiteral("FILE...");
    int fMinOperands = 1;
    int fMaxOperands = -1; // -1: any number
    QVector<TCliOption> fOptions;
    QStringList fNotes; // paragraphs of the help, behind the options

    /// The option of that name, or null.
    const TCliOption *option(const QString &name) const;
    /// The text of COMMAND --help.
    QString help() const;
};
