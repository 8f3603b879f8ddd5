#include "TCliFileCommand.h"

#include "TCliArguments.h"
#include "TCliEnvironment.h"
#include "TCliInput.h"
#include "TCliJobs.h"
#include "TCliResultJson.h"
#include "TCliStack.h"
#include "plugin/IConsole.h"
#include "plugin/IConverter.h"
#include "services/IBatchHost.h"
#include "services/IPluginHost.h"
#include "services/TImportDriver.h"
#include "settings/TDefaultsIni.h"
#include "utils/CommonUtils.h"

#include <QCoreApplication>
#include <QHash>
#include <new>

namespace {

constexpr int cMaxJobs = 256;
constexpr char cWorkerOption[] = "--worker";
constexpr char cFollowOption[] = "--follow"; // see fIsFollowed
constexpr int cWorkerLost = int(0x80000001); // a process ended before it was done

void outOfMemory(TCliInput &input)
{
    input.fail(cConverterOutOfMemory, "there is not enough memory to work on it");
}

QStringList formatNames(const TImportDriver &driver)
{
    QStringList names;
    for (const IConverter *converter : driver.converters())
        names.append(converter->formatName());
    names.removeAll(QString());
    return names;
}

} // namespace

QVector<TCliOption> TCliFileCommand::fileOptions()
{
    return {{"--format", "NAME", "read the files in this format, whatever they look like; see zarnu formats"},
            {"--orig-units", "X:Y", "say what the axes of the files are, by script names; either may be empty",
             TCliOption::cOffered},
            {"--jobs", "N", "work on N files at once, in processes of their own (default 1)"},
            {cWorkerOption, "MSECS", "work on one file for another process", TCliOption::cHidden},
            {cFollowOption, "", "tell of each file that is done, and stop when standard input says so",
             TCliOption::cHidden}};
}

bool TCliFileCommand::checkOptions(const TCliArguments &arguments, const TCliEnvironment &environment, QString &error)
{
    fInputs = arguments.operands();
    fJson = arguments.has("--json");
    fFormat = arguments.value("--format");
    fIsWorker = arguments.has(cWorkerOption);
    fIsFollowed = arguments.has(cFollowOption) && !fJson; // which a stop would leave without its end
    fKeepsSettings = arguments.has("--settings");
    const QStringList known = formatNames(environment.fBatch.importDriver());
    if (!fFormat.isEmpty() && !known.contains(fFormat)) {
        error = QString("--format: unknown format %1; known are %2").arg(fFormat, known.join(", "));
        return false;
    }
    if (arguments.has("--orig-units") && !fOrigUnits.parse(arguments.value("--orig-units"), error))
        return false;
    if (arguments.has("--jobs")) {
        bool ok = false;
        fJobs = arguments.value("--jobs").toInt(&ok);
        if (!ok || fJobs < 1 || fJobs > cMaxJobs) {
            error = QString("--jobs: %1 is no number from 1 to %2").arg(arguments.value("--jobs")).arg(cMaxJobs);
            return false;
        }
    }
    if (fJobs > 1 && fKeepsSettings) {
        environment.warn("--jobs is not used: with --settings the files share one store and go one after another");
        fJobs = 1;
    }
    if (fJobs > 1 && arguments.has("--save-script")) {
        environment.warn("--jobs is not used: with --save-script the files go one after another");
        fJobs = 1;
    }
    return true;
}

void TCliFileCommand::printOutput(int index, const QByteArray &output, const TCliEnvironment &environment) const
{
    if (!fJson || fIsWorker) {
        environment.fConsole.out(output);
        return;
    }
    environment.fConsole.out(index == 0 ? TCliResultJson::cBegin : TCliResultJson::cSeparator);
    environment.fConsole.out(output);
    if (index == fInputs.size() - 1)
        environment.fConsole.out(TCliResultJson::cEnd);
}

TCliInput TCliFileCommand::open(const QString &file, const QString &format, const TCliEnvironment &environment)
{
    return TCliInputs::open(file, format, environment);
}

QByteArray TCliFileCommand::processInput(int index, const TCliEnvironment &environment, bool &failed)
{
    if (!fKeepsSettings)
        TDefaultsIni::setStore(TDefaultsIni::memory);
    const QString file = fInputs.at(index);
    TCliInput input;
    input.fFile = file;
    try {
        input = open(file, fFormat, environment);
    } catch (const std::bad_alloc &) {
        outOfMemory(input);
    }
    for (const QString &note : qAsConst(input.fNotes))
        environment.warn(file + ": " + note);
    return finishInput(input, index, environment, failed);
}

QByteArray TCliFileCommand::finishInput(TCliInput &input, int index, const TCliEnvironment &environment, bool &failed)
{
    QByteArray out;
    try {
        if (input.isOk()) {
            fOrigUnits.apply(input.fItems, environment.fHost.history());
            work(input, index, environment, out);
        }
    } catch (const std::bad_alloc &) { // the next input has a document of its own
        outOfMemory(input);
    }
    if (!input.isOk())
        environment.fConsole.err(TCliEnvironment::failureLine(input.fFile, input.fReason, input.fCode));
    failed = !input.isOk();
    if (!fJson)
        return out;
    TCliResultJson json(*environment.fHost.document(), jsonParts());
    json.setChain(chain());
    return json.object(input);
}

bool TCliFileCommand::isStopWanted(const TCliEnvironment &environment) const
{
    return fIsFollowed && environment.fConsole.isStopWanted();
}

void TCliFileCommand::tellDone(const QString &file, const TCliEnvironment &environment) const
{
    if (fIsFollowed)
        environment.fConsole.err(QString("zarnu: %1: done").arg(file));
}

int TCliFileCommand::runHere(const TCliEnvironment &environment)
{
    int status = cCliAllDone;
    for (int i = 0; i < fInputs.size(); ++i) {
        if (isStopWanted(environment))
            return cCliInputFailed;
        environment.fConsole.progress(fInputs.at(i), i, fInputs.size());
        bool failed = false;
        printOutput(i, processInput(i, environment, failed), environment);
        if (failed)
            status = cCliInputFailed;
        else
            tellDone(fInputs.at(i), environment);
    }
    environment.fConsole.progress(QString(), fInputs.size(), fInputs.size());
    if (fIsWorker)
        environment.fConsole.out(TCliJobs::endMark());
    return status;
}

int TCliFileCommand::runGathered(const TCliEnvironment &environment)
{
    TCliStack stack(fInputs, fFormat, environment);
    QByteArrayList objects;
    int status = cCliAllDone;
    bool failed = false;
    if (!stack.input().fItems.isEmpty())
        objects.append(finishInput(stack.input(), 0, environment, failed));
    for (const QString &file : failed ? QStringList() : stack.taken())
        tellDone(file, environment);
    for (TCliInput &input : stack.failed()) {
        bool inputFailed = false;
        objects.append(finishInput(input, 0, environment, inputFailed));
        failed = true;
    }
    if (failed)
        status = cCliInputFailed;
    environment.fConsole.out(fJson ? TCliResultJson::array(objects) : objects.join());
    return status;
}

bool TCliFileCommand::takeJob(int index, const TCliJobResult &job, const TCliEnvironment &environment)
{
    for (const QByteArray &line : job.fErrors.split('\n')) {
        if (!line.isEmpty())
            environment.fConsole.err(QString::fromLocal8Bit(line));
    }
    if (job.fIsWhole) {
        printOutput(index, job.fOutput, environment);
        if (job.fStatus == cCliAllDone)
            tellDone(fInputs.at(index), environment);
        return job.fStatus == cCliAllDone;
    }
    TCliInput input;
    input.fFile = fInputs.at(index);
    input.fail(cWorkerLost, "the process that worked on it ended before it was done");
    environment.fConsole.err(TCliEnvironment::failureLine(input.fFile, input.fReason, input.fCode));
    printOutput(index, fJson ? TCliResultJson(*environment.fHost.document(), 0).object(input) : QByteArray(),
                environment);
    return false;
}

int TCliFileCommand::runJobs(const TCliArguments &arguments, const TCliEnvironment &environment)
{
    const QDateTime time = TCliInputs::newestTime(fInputs);
    const QString msecs = QString::number(time.isValid() ? time.toMSecsSinceEpoch() : 0);
    const QStringList options = arguments.optionsExcept({cFollowOption, "--jobs", "-o", "--to", "--plot", "--plot-to"});
    QList<QStringList> calls;
    for (int i = 0; i < fInputs.size(); ++i)
        calls.append(QStringList{syntax().fName} + options + outputOptions(i) +
                     QStringList{cWorkerOption, msecs, "--", fInputs.at(i)});

    int status = cCliAllDone;
    TCliJobs jobs(QCoreApplication::applicationFilePath(), fJobs);
    jobs.setStopCheck([&] { return isStopWanted(environment); });
    int handedOver = 0;
    jobs.run(calls, [&](int index, const TCliJobResult &job) {
        if (!takeJob(index, job, environment))
            status = cCliInputFailed;
        environment.fConsole.progress(fInputs.at(index), index + 1, fInputs.size());
        ++handedOver;
    });
    return handedOver == fInputs.size() ? status : int(cCliInputFailed);
}

int TCliFileCommand::run(const TCliArguments &arguments, const TCliEnvironment &environment)
{
    QString error;
    if (!checkOptions(arguments, environment, error) || !prepare(arguments, environment, error) || !makeFolders(error))
        return environment.refuse(QString("%1: %2").arg(syntax().fName, error));
    if (fJobs > 1 && fInputs.size() > 1 && !gathers())
        return runJobs(arguments, environment);
    // sets and hashes in a fixed order, and times in results that a second run has too
    qSetGlobalQHashSeed(0);
    Utils::Common::setFixedTime(
        fIsWorker ? QDateTime::fromMSecsSinceEpoch(arguments.value(cWorkerOption).toLongLong(), Qt::UTC)
                  : TCliInputs::newestTime(fInputs));
    int status = gathers() ? runGathered(environment) : runHere(environment);
    if (!finish(error)) {
        environment.fConsole.err("zarnu: " + error);
        status = cCliInputFailed;
    }
    Utils::Common::setFixedTime(QDateTime());
    Utils::Common::setDeterministic(QByteArray());
    return status;
}
