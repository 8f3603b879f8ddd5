#pragma once

#include <QString>
#include <functional>

class TCommand;
class TStepCall;

/// One of the functions of the global `steps`: how a script asks for a command.
struct TStepKind
{
    QString fName;
    /// What it is called with, as `item, {from, to, xUnits}`; for completion and the reference.
    QString fArguments;
    QString fText; // what it does, one sentence
    /// The command, which the caller owns; null where there is nothing to do or the call tells of an error.
    std::function<TCommand *(TStepCall &)> fMake;
};
