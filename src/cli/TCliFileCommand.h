#pragma once

#include "ICliCommand.h"
#include "TCliOrigUnits.h"
#include "TCliSyntax.h"

#include <QByteArray>
#include <QStringList>
#include <QVariantList>
#include <QVector>

struct TCliInput;
struct TCliJobResult;

/// A command that does the same to each of its files, here or in processes of its own. No input sees what another one
/// did, so that neither their order nor the number of processes shows in a result.
class TCliFileCommand : public ICliCommand
{
public:
    int run(const TCliArguments &arguments, const TCliEnvironment &environment) final;

protected:
    /// The options of all commands of this kind.
    static QVector<TCliOption> fileOptions();

    /// Checks and loads what all inputs share. False, with an error, is a usage error.
    virtual bool prepare(const TCliArguments &arguments, const TCliEnvironment &environment, QString &error) = 0;
    /// Makes the folders of the outputs; false, with an error, when one cannot be made.
    virtual bool makeFolders(QString &) { return true; }
    /// Opens one of the files, as its format where that is not empty.
    virtual TCliInput open(const QString &file, const QString &format, const TCliEnvironment &environment);
    /// Does the work on an opened input; what goes to standard output is appended to `out`.
    virtual void work(TCliInput &input, int index, const TCliEnvironment &environment, QByteArray &out) = 0;
    /// The parts of a spectrum that --json prints, a sum of TCliResultJson::TPart.
    virtual int jsonParts() const = 0;
    /// The chain for the provenance of --json.
    virtual QVariantList chain() const { return {}; }
    /// Called once all inputs are done; false, with an error, when something could not be finished.
    virtual bool finish(QString &) { return true; }
    /// Whether all inputs are gathered into one stack, so that the work is done once.
    virtual bool gathers() const { return false; }

    const QStringList &inputs() const { return fInputs; }

private:
    bool checkOptions(const TCliArguments &arguments, const TCliEnvironment &environment, QString &error);
    QByteArray processInput(int index, const TCliEnvironment &environment, bool &failed);
    QByteArray finishInput(TCliInput &input, int index, const TCliEnvironment &environment, bool &failed);
    int runHere(const TCliEnvironment &environment);
    int runGathered(const TCliEnvironment &environment);
    TCliJobResult doJob(int index, const TCliEnvironment &environment);
    int runJobs(const TCliEnvironment &environment);
    bool isStopWanted(const TCliEnvironment &environment) const;
    void tellDone(const QString &file, const TCliEnvironment &environment) const;
    bool takeJob(int index, const TCliJobResult &job, const TCliEnvironment &environment);
    void printOutput(int index, const QByteArray &output, const TCliEnvironment &environment) const;

    QStringList fInputs;
    QString fFormat;
    TCliOrigUnits fOrigUnits;
    int fJobs = 1;
    bool fJson = false;
    bool fIsFollowed = false; // by the program that started this one, through both of its streams
    bool fKeepsSettings = false;
};
