// Whatever was done can be written down as a script, and the script does the same again.
#include "TCommandMakers.h"
#include "TDice.h"
#include "TReplay.h"

#include <gtest/gtest.h>

namespace {

constexpr int cTries = 6; // of each command alone; some makers find nothing to do at times
constexpr int cSequences = 60;
constexpr int cReported = 3; // failures of a run that are told

/// A longer search by hand.
int orAsTold(int count)
{
    bool isTold = false;
    const int told = qEnvironmentVariableIntValue("YREX_RANDOM_SEQUENCES", &isTold);
    return isTold ? told : count;
}

/// Why a script is not as good as what it was written from; empty when it is.
QString problemOf(const TReplay &replay)
{
    const bool isTold = !replay.fScript.contains("// not");
    const QString problem = isTold ? replay.fProblem : QString("a step is not told");
    return problem.isEmpty() ? problem : replay.fScript.left(4000) + problem;
}

/// Without the steps that a failure does not need.
TRandomSteps fewest(quint32 itemsSeed, TRandomSteps steps)
{
    for (int i = steps.size() - 1; i >= 0; --i) {
        TRandomSteps fewer = steps;
        fewer.remove(i);
        if (!problemOf(replay(itemsSeed, fewer)).isEmpty())
            steps = fewer;
    }
    return steps;
}

} // namespace

TEST(Replay, everyCommandAlone)
{
    const int tries = qMax(cTries, orAsTold(0) / 10);
    for (int maker = 0; maker < commandMakers().size(); ++maker) {
        TDice dice(1000);
        for (int i = 0; i < tries; ++i) {
            TRandomStep step;
            step.fMaker = maker;
            step.fSeed = dice.seed();
            const QString problem = problemOf(replay(dice.seed(), {step}));
            if (problem.isEmpty())
                continue;
            ADD_FAILURE() << commandMakers().at(maker).fName << ": " << problem.toStdString();
            break;
        }
    }
}

TEST(Replay, sessions)
{
    int failures = 0;
    TDice dice(77);
    for (int i = 0; i < orAsTold(cSequences) && failures < cReported; ++i) {
        const quint32 itemsSeed = dice.seed();
        const TRandomSteps steps = randomSteps(dice.seed());
        if (problemOf(replay(itemsSeed, steps)).isEmpty())
            continue;
        ++failures;
        ADD_FAILURE() << "sequence " << i << ":\n"
                      << problemOf(replay(itemsSeed, fewest(itemsSeed, steps))).toStdString();
    }
}
