#pragma once

#include "plugin/IPluginCommandLine.h"

class IPluginHost;
struct TCliEnvironment;
struct TCliSyntax;
class TCliArguments;

/// The commands of the program without windows.
class TYrexCommandLine
{
public:
    /// The host is not owned; it must be one that works without windows, or every command is refused.
    explicit TYrexCommandLine(IPluginHost *host)
        : fHost(host)
    {
    }

    static QList<TConsoleCommand> commandList();
    /// The syntax of a command with the options that all commands have; an empty name for a command that there is not.
    static TCliSyntax syntaxOf(const QString &name);
    /// Runs a command and returns the exit status.
    int run(const QString &name, const QStringList &arguments, IConsole &console);

private:
    void applyCommonOptions(const TCliArguments &arguments, IConsole &console) const;

    IPluginHost *fHost;
};
