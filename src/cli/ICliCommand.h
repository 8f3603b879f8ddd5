#pragma once

class TCliArguments;
struct TCliEnvironment;
struct TCliSyntax;

/// One command of the program. An object serves one run.
class ICliCommand
{
public:
    virtual ~ICliCommand() = default;
    /// What the command takes, without the options that all commands have.
    virtual TCliSyntax syntax() const = 0;
    /// Runs the command and returns a TCliStatus.
    virtual int run(const TCliArguments &arguments, const TCliEnvironment &environment) = 0;
};
