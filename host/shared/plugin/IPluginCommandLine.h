#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QtPlugin>

class IConsole;

/// One command of a program without windows.
struct TConsoleCommand
{
    QString fName;
    QString fHelp; // one line
};

/// The commands that a plug-in gives to the command line program.
class IPluginCommandLine
{
public:
    virtual ~IPluginCommandLine() = default;
    virtual QList<TConsoleCommand> commands() const = 0;
    /// Runs a command with its arguments and returns the exit status: 0 all done, 1 an input failed, 2 usage error.
    virtual int run(const QString &name, const QStringList &arguments, IConsole &console) = 0;
};

#define cIPluginCommandLineIID "com.dornveld.kelmora-qt.IPluginCommandLine/1.0"
Q_DECLARE_INTERFACE(IPluginCommandLine, cIPluginCommandLineIID)
