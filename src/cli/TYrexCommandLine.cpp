#include "TYrexCommandLine.h"

#include "TCliArguments.h"
#include "TCliChain.h"
#include "TCliConvert.h"
#include "TCliEnvironment.h"
#include "TCliFormats.h"
#include "TCliInfo.h"
#include "TCliInspect.h"
#include "TCliProcess.h"
#include "TCliScript.h"
#include "TCliSpool.h"
#include "TCliSyntax.h"
#include "log/TLogger.h"
#include "plugin/IConsole.h"
#include "services/IPluginHost.h"
#include "settings/TDefaultsIni.h"

#include <QFileInfo>
#include <QSettings>
#include <memory>
#include <new>

namespace {

using TMaker = std::unique_ptr<ICliCommand> (*)();

template <typename TCommandClass>
std::unique_ptr<ICliCommand> make()
{
    return std::make_unique<TCommandClass>();
}

struct TEntry
{
    const char *fName;
    const char *fHelp;
    TMaker fMake;
};

const TEntry cCommands[] = {
    {"formats", "the file formats that are read and written", make<TCliFormats>},
    {"info", "what is in files", make<TCliInfo>},
    {"inspect", "why a file opens or does not", make<TCliInspect>},
    {"convert", "import files and write them in another form", make<TCliConvert>},
    {"process", "import files, run a processing chain and write the results", make<TCliProcess>},
    {"chain", "show, check and write processing chains", make<TCliChain>},
    {"script", "run a script", make<TCliScript>},
};

const TEntry *entryOf(const QString &name)
{
    for (const TEntry &entry : cCommands) {
        if (name == QLatin1String(entry.fName))
            return &entry;
    }
    return nullptr;
}

TCliSyntax withCommonOptions(TCliSyntax syntax)
{
    syntax.fOptions += {{"--settings", "FILE.ini", "take the defaults of settings from this file, and keep them there"},
                        {"--quiet", "", "show no progress"},
                        {"--verbose", "", "write the log to standard error"},
                        {"--help", "", "show this text"}};
    return syntax;
}

/// Why a file cannot hold the settings of a call; empty when it can. One that is broken would be written over.
QString settingsProblem(const QString &path)
{
    const QFileInfo info(path);
    if (path.isEmpty() || (info.exists() && !info.isFile()))
        return path.isEmpty() ? QString() : QString("%1 is no file").arg(path);
    const QSettings settings(path, QSettings::IniFormat);
    settings.allKeys(); // until then nothing is looked at
    if (settings.status() == QSettings::FormatError)
        return QString("%1 is no file of settings (INI), or a broken one").arg(path);
    const bool isRead = !info.exists() || info.isReadable();
    return isRead && settings.isWritable() ? QString()
                                           : QString("%1 cannot be %2").arg(path, isRead ? "written" : "read");
}

} // namespace

QList<TConsoleCommand> TYrexCommandLine::commandList()
{
    QList<TConsoleCommand> list;
    for (const TEntry &entry : cCommands)
        list.append(TConsoleCommand{entry.fName, entry.fHelp});
    return list;
}

TCliSyntax TYrexCommandLine::syntaxOf(const QString &name)
{
    const TEntry *entry = entryOf(name);
    return entry ? withCommonOptions(entry->fMake()->syntax()) : TCliSyntax();
}

void TYrexCommandLine::applyCommonOptions(const TCliArguments &arguments, IConsole &console) const
{
    console.setQuiet(arguments.has("--quiet"));
    TLogger::setStderrLevel(arguments.has("--verbose") ? TLogger::cDebug : TLogger::cError);
    if (arguments.has("--settings"))
        TDefaultsIni::setStore(arguments.value("--settings"));
    else
        TDefaultsIni::setStore(TDefaultsIni::memory);
}

int TYrexCommandLine::run(const QString &name, const QStringList &arguments, IConsole &console)
{
    IBatchHost *batch = fHost ? fHost->batch() : nullptr;
    if (!batch) {
        console.err("zarnu: commands do not run in a program with windows");
        return cCliUsageError;
    }
    TCliEnvironment environment{*fHost, *batch, console, TCliSpool::cUsualLimit};
    const TEntry *entry = entryOf(name);
    if (!entry)
        return environment.refuse(QString("there is no command %1; see zarnu --help").arg(name));

    const std::unique_ptr<ICliCommand> command = entry->fMake();
    const TCliSyntax syntax = withCommonOptions(command->syntax());
    TCliArguments parsed;
    QString error;
    if (!parsed.parse(syntax, arguments, error))
        return environment.refuse(QString("%1: %2; see zarnu %1 --help").arg(name, error));
    if (parsed.has("--help")) {
        console.out(syntax.help().toUtf8());
        return cCliAllDone;
    }
    const QString limit = parsed.value("--spool-limit");
    if (!limit.isEmpty() && !TCliSpool::parseLimit(limit, environment.fSpoolLimit))
        return environment.refuse(QString("--spool-limit: %1 is no size such as 100M or 8G").arg(limit));
    const QString problem = settingsProblem(parsed.value("--settings"));
    if (!problem.isEmpty())
        return environment.refuse("--settings: " + problem);
    applyCommonOptions(parsed, console);
    int status = cCliInputFailed;
    try {
        status = command->run(parsed, environment);
    } catch (const std::bad_alloc &) { // of what belongs to no input, such as a chain
        console.err("zarnu: there is not enough memory");
    }
    if (!TDefaultsIni::sync())
        environment.warn(QString("%1: the settings could not be written").arg(parsed.value("--settings")));
    TDefaultsIni::setStore(TDefaultsIni::memory);
    return status;
}
