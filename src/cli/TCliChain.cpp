#include "TCliChain.h"

#include "TCliArguments.h"
#include "TCliEnvironment.h"
#include "TCliSyntax.h"
#include "TCliTarget.h"
#include "TTextTable.h"
#include "TYrexChainFile.h"
#include "TYrexChainJson.h"
#include "TYrexChainText.h"
#include "TYrexProcParams.h"
#include "plugin/IConsole.h"

namespace {

struct TWord
{
    const char *fName;
    int fOperands; // with the word itself
    QStringList fOptions;
    int (*fRun)(const TCliArguments &, const TCliEnvironment &);
};

} // namespace

TCliSyntax TCliChain::syntax() const
{
    TCliSyntax syntax;
    syntax.fName = "chain";
    syntax.fOperands = "default | show CHAIN | save CHAIN -o FILE | keys";
    syntax.fMaxOperands = 2;
    syntax.fSummary = "Shows, checks and writes processing chains.";
    syntax.fOptions = {
        {"--json", "", "with show: print the chain as JSON"},
        {"-o", "FILE", "with save: a processing template (.kzp), or JSON for a name in .json; - prints JSON"},
        {"--force", "", "with save: replace a file that exists"}};
    syntax.fNotes =
        QStringList{"chain default prints the default chain as JSON; chain show the actions of a chain that are "
                    "applied; chain keys every action with its keys, types, defaults, options and ranges.",
                    "A chain is a processing template or a JSON array of actions, such as "
                    "[ { \"action\": \"Smoothing\", \"sgsmoothingkerlen\": 11 } ]. What it does not say "
                    "takes its default; an action takes part unless \"apply\" is false."};
    return syntax;
}

bool TCliChain::load(const TCliArguments &arguments, const TCliEnvironment &environment, TYrexProcParams &chain)
{
    const QString file = arguments.operands().value(1);
    QString error;
    QStringList warnings;
    if (!TYrexChainFile::load(file, chain, error, warnings)) {
        environment.refuse(file + ": " + error);
        return false;
    }
    for (const QString &warning : qAsConst(warnings))
        environment.warn(file + ": " + warning);
    return true;
}

int TCliChain::runDefault(const TCliArguments &, const TCliEnvironment &environment)
{
    environment.fConsole.out(TYrexChainJson::toJson(TYrexProcParams().actions()));
    return cCliAllDone;
}

int TCliChain::runShow(const TCliArguments &arguments, const TCliEnvironment &environment)
{
    TYrexProcParams chain;
    if (!load(arguments, environment, chain))
        return cCliUsageError;
    environment.fConsole.out(arguments.has("--json") ? TYrexChainJson::toJson(chain.actions())
                                                     : TYrexChainText::report(chain).toUtf8());
    return cCliAllDone;
}

int TCliChain::runSave(const TCliArguments &arguments, const TCliEnvironment &environment)
{
    const QString path = arguments.value("-o");
    if (path.isEmpty())
        return environment.refuse("chain save: missing argument: -o FILE");
    QString obstacle = TCliTarget::sourceObstacle(path, TCliTarget::keysOf({arguments.operands().value(1)}));
    if (obstacle.isEmpty() && path != "-")
        obstacle = TCliTarget::obstacle(path, arguments.has("--force"));
    if (!obstacle.isEmpty())
        return environment.refuse("chain save: " + obstacle);
    TYrexProcParams chain;
    if (!load(arguments, environment, chain))
        return cCliUsageError;
    if (path == "-") {
        environment.fConsole.out(TYrexChainJson::toJson(chain.actions()));
        return cCliAllDone;
    }
    QString error;
    if (TYrexChainFile::save(path, chain, &error))
        return cCliAllDone;
    environment.fConsole.err(QString("zarnu: %1 cannot be written: %2").arg(path, error));
    return cCliInputFailed;
}

int TCliChain::runKeys(const TCliArguments &, const TCliEnvironment &environment)
{
    environment.fConsole.out(TYrexChainText::keys().toUtf8());
    return cCliAllDone;
}

int TCliChain::run(const TCliArguments &arguments, const TCliEnvironment &environment)
{
    const TWord cWords[] = {{"default", 1, {}, runDefault},
                            {"show", 2, {"--json"}, runShow},
                            {"save", 2, {"-o", "--force"}, runSave},
                            {"keys", 1, {}, runKeys}};
    const QString name = arguments.operands().first();
    for (const TWord &word : cWords) {
        if (name != QLatin1String(word.fName))
            continue;
        if (arguments.operands().size() < word.fOperands)
            return environment.refuse(QString("chain %1: missing argument: CHAIN").arg(name));
        if (arguments.operands().size() > word.fOperands)
            return environment.refuse(QString("chain %1: too many arguments").arg(name));
        for (const QString option : {"--json", "-o", "--force"}) {
            if (arguments.has(option) && !word.fOptions.contains(option))
                return environment.refuse(QString("chain %1: unknown option %2").arg(name, option));
        }
        return word.fRun(arguments, environment);
    }
    return environment.refuse(QString("chain: unknown %1; known are default, show, save, keys").arg(name));
}
