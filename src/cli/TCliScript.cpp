#include "TCliScript.h"

#include "TCliArguments.h"
#include "TCliEnvironment.h"
#include "TCliSyntax.h"
#include "canvas/TDocument.h"
#include "plugin/IConsole.h"
#include "script/TScriptRun.h"
#include "services/IBatchHost.h"
#include "services/IPluginHost.h"

#include <QFileInfo>

TCliSyntax TCliScript::syntax() const
{
    TCliSyntax syntax;
    syntax.fName = "script";
    syntax.fSummary =
        "Runs a script. What it prints goes to standard output; it ends with status 1 when the script fails.";
    syntax.fOperands = "FILE.js [ARG...]";
    syntax.fMinOperands = 1;
    syntax.fMaxOperands = -1;
    syntax.fOptions = {
        {"--force", "", "let documents be saved over files that another program changed since they were opened"},
        {"--read-only", "", "the script reads files, and writes none"},
        {"--folder", "DIR", "the script reads and writes files below DIR only; links are followed before"}};
    return syntax;
}

int TCliScript::run(const TCliArguments &arguments, const TCliEnvironment &environment)
{
    const QString file = arguments.operands().first();
    if (!QFileInfo(file).isFile())
        return environment.refuse(QString("script: %1 is no file").arg(file));
    IScriptHost *scripts = environment.fHost.scripts();
    if (!scripts)
        return environment.refuse("script: this program runs no scripts");
    environment.fBatch.setDocument(std::make_unique<TDocument>());
    TScriptRun run(environment.fHost, *scripts);
    IConsole &console = environment.fConsole;
    QObject::connect(&run, &TScriptRun::printed, &run,
                     [&console](const QString &text) { console.out(text.toUtf8() + '\n'); });
    QObject::connect(&run, &TScriptRun::warned, &run, [&environment](const QString &place, const QString &text) {
        environment.warn(place.isEmpty() ? text : place + ": " + text);
    });
    run.setReplacesChanged(arguments.has("--force"));
    TScriptReach reach;
    reach.setReadOnly(arguments.has("--read-only"));
    if (arguments.has("--folder") && !reach.setFolder(arguments.value("--folder")))
        return environment.refuse(QString("script: %1 is no folder").arg(arguments.value("--folder")));
    run.setReach(reach);
    run.setArguments(arguments.operands().mid(1));
    TScriptError error;
    if (run.runFile(file, error))
        return cCliAllDone;
    console.err("zarnu: " + error.text());
    return cCliInputFailed;
}
