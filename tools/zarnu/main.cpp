#include "TTerminalConsole.h"
#include "builtin/TJCAMPPlugin.h"
#include "log/TLogger.h"
#include "plugin/IPluginCommandLine.h"
#include "services/TKelmoraHost.h"

#include <QGuiApplication>

namespace {

constexpr int cOutputLost = 1;
constexpr int cUsageError = 2;

QList<IPluginCommandLine *> commandLines(const TKelmoraHost &host)
{
    QList<IPluginCommandLine *> found;
    for (QObject *plugin : host.plugins()) {
        if (auto *commandLine = qobject_cast<IPluginCommandLine *>(plugin))
            found.append(commandLine);
    }
    return found;
}

QByteArray usage(const QList<IPluginCommandLine *> &lines)
{
    constexpr int cNameWidth = 12;
    QString text = "zarnu COMMAND [ARGUMENT]...\n\n"
                   "Opens, processes and converts optical spectra without a window.\n\nCommands:\n";
    for (const IPluginCommandLine *line : lines) {
        for (const TConsoleCommand &command : line->commands())
            text += "  " + command.fName.leftJustified(cNameWidth) + command.fHelp + '\n';
    }
    text += "\nzarnu COMMAND --help tells more of a command, zarnu --version the version.\n"
            "Exit status: 0 all inputs done, 1 at least one input failed, 2 usage error.\n";
    return text.toUtf8();
}

void reportNoPlugin(const TKelmoraHost &host, TTerminalConsole &console)
{
    console.err("zarnu: no plug-in with commands was found; looked in:");
    for (const QString &folder : TPluginLoader::searchPath())
        console.err("  " + folder);
    for (const QString &problem : host.loader().problems())
        console.err("  " + problem);
    console.err("The environment variable KELMORA_PLUGIN_PATH names more folders.");
}

int runCommand(const QStringList &arguments, TTerminalConsole &console)
{
    if (arguments.contains("--verbose")) // before the plug-ins are loaded, of which the log tells
        TLogger::setStderrLevel(TLogger::cDebug);
    TKelmoraHost host;
    host.addBuiltIn(new TJCAMPPlugin);
    host.start();
    const QList<IPluginCommandLine *> lines = commandLines(host);
    if (lines.isEmpty()) {
        reportNoPlugin(host, console);
        return cUsageError;
    }
    const QString name = arguments.value(1);
    if (name == "--help" || name == "-h" || name == "help") {
        console.out(usage(lines));
        return 0;
    }
    for (IPluginCommandLine *line : lines) {
        for (const TConsoleCommand &command : line->commands()) {
            if (command.fName == name)
                return line->run(name, arguments.mid(2), console);
        }
    }
    if (name.isEmpty())
        console.err("zarnu: missing argument: COMMAND; see zarnu --help");
    else if (name.startsWith('-'))
        console.err(QString("zarnu: unknown option %1; see zarnu --help").arg(name));
    else
        console.err(QString("zarnu: there is no command %1; see zarnu --help").arg(name));
    return cUsageError;
}

/// What Qt has to say goes to the log, so that standard error holds what a user can act on.
void logQtMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    const bool isGrave = type == QtCriticalMsg || type == QtFatalMsg;
    TLogger::printToLogger("Qt", text, isGrave ? TLogger::cError : TLogger::cInformation);
}

} // namespace

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0); // before the first hash, so that a second run walks them in the same order
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(logQtMessage);
    QGuiApplication application(argc, argv);
    QCoreApplication::setApplicationName("zarnu");
    QCoreApplication::setApplicationVersion(YREX_VERSION);

    TTerminalConsole console;
    const QStringList arguments = QCoreApplication::arguments();
    int status = 0;
    if (arguments.value(1) == "--version")
        console.out("zarnu " YREX_VERSION "\n");
    else
        status = runCommand(arguments, console);
    if (!console.isGood()) {
        console.err("zarnu: the output could not be written");
        status = status == 0 ? cOutputLost : status;
    }
    return status;
}
