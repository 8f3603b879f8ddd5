#include "TCliFileCommand.h"

#include "TCliArguments.h"
#include "TCliEnvironment.h"
#include "TCliFileList.h"
#include "TCliInput.h"
#include "TCliJobs.h"
#include "TCliResultJson.h"
#include "TCliStack.h"
#include "TCliTaskConsole.h"
#include "plugin/IConsole.h"
#include "plugin/IConverter.h"
#include "services/IBatchHost.h"
#include "services/IPluginHost.h"
#include "services/TImportDriver.h"
#include "settings/TDefaultsIni.h"
#include "utils/CommonUtils.h"

#include <QHash>
#include <new>

namespace {

constexpr int cMaxJobs = 256;
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
    return QVector<TCliOption>{
               {"--format", "NAME", "read the files in this format, whatever they look like; see zarnu formats"},
               {"--orig-units", "X:Y", "say what the axes of the files are, by script names; either may be empty",
                TCliOption::cOffered},
               {"--jobs", "N", "work on N files at once, in processes of their own (default 1)"},
               {cFollowOption, "", "tell of each file that is done, and stop when standard input says so",
                TCliOption::cHidden}} +
           TCliFileList::options();
}

bool TCliFileCommand::checkOptions(const TCliArguments &arguments, const TCliEnvironment &environment, QString &error)
{
    if (!TCliFileList::read(arguments, fInputs, error))
        return false;
    fJson = arguments.has("--json");
    fFormat = arguments.value("--format");
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
    if (!fJson) {
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
    for (const QString &line : job.fErrors)
        environment.fConsole.err(line);
    if (job.fIsWhole) {
        printOutput(index, job.fOutput, environment);
        if (!job.fHasFailed)
            tellDone(fInputs.at(index), environment);
        return !job.fHasFailed;
    }
    TCliInput input;
    input.fFile = fInputs.at(index);
    input.fail(cWorkerLost, "the process that worked on it ended before it was done");
    environment.fConsole.err(TCliEnvironment::failureLine(input.fFile, input.fReason, input.fCode));
    printOutput(index, fJson ? TCliResultJson(*environment.fHost.document(), 0).object(input) : QByteArray(),
                environment);
    return false;
}

TCliJobResult TCliFileCommand::doJob(int index, const TCliEnvironment &environment)
{
    TCliTaskConsole console;
    TCliJobResult result;
    const TCliEnvironment own{environment.fHost, environment.fBatch, console, environment.fSpoolLimit};
    const QByteArray out = processInput(index, own, result.fHasFailed);
    result.fOutput = console.output() + out;
    result.fErrors = console.errors();
    result.fIsWhole = true;
    return result;
}

int TCliFileCommand::runJobs(const TCliEnvironment &environment)
{
    int status = cCliAllDone;
    TCliJobs jobs(qMin(fJobs, fInputs.size()));
    jobs.setStopCheck([&] { return isStopWanted(environment); });
    int handedOver = 0;
    const auto work = [&](int index) { return doJob(index, environment); };
    jobs.run(fInputs.size(), work, [&](int index, const TCliJobResult &job) {
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
    // sets and hashes in a fixed order, and times in results that a second run has too
    qSetGlobalQHashSeed(0);
    Utils::Common::setFixedTime(TCliInputs::newestTime(fInputs));
    const bool isShared = fJobs > 1 && fInputs.size() > 1;
    int status = gathers() ? runGathered(environment) : isShared ? runJobs(environment) : runHere(environment);
    if (!finish(error)) {
        environment.fConsole.err("zarnu: " + error);
        status = cCliInputFailed;
    }
    Utils::Common::setFixedTime(QDateTime());
    Utils::Common::setDeterministic(QByteArray());
    return status;
}
