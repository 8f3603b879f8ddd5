// Whatever was done can be written down as a script, and the script does the same again.
#include "TCommandMakers.h"
#include "TDice.h"
#include "TReplay.h"

#include <gtest/gtest.h>

namespace {

constexpr int cTries = 6; // of each command alone; some makers find nothing to do at times
constexpr int cSequences = 60;
constexpr bool cAllAreTold = false; // commands that no script can tell are passed over until then

} // namespace

TEST(Replay, everyCommandAlone)
{
    for (int maker = 0; maker < commandMakers().size(); ++maker) {
        TDice dice(1000);
        for (int i = 0; i < cTries; ++i) {
            TRandomStep step;
            step.fMaker = maker;
            step.fSeed = dice.seed();
            const TReplay result = replay(dice.seed(), {step});
            const bool isTold = !result.fScript.contains("// not");
            if (isTold ? result.fProblem.isEmpty() : !cAllAreTold)
                continue;
            ADD_FAILURE() << commandMakers().at(maker).fName << ": " << result.fScript.left(2000).toStdString()
                          << result.fProblem.toStdString();
            break;
        }
    }
}

TEST(Replay, sessions)
{
    int failures = 0;
    TDice dice(77);
    for (int i = 0; i < cSequences && failures < 3; ++i) {
        const quint32 itemsSeed = dice.seed();
        const TReplay result = replay(itemsSeed, randomSteps(dice.seed()));
        const bool isTold = !result.fScript.contains("// not");
        if (isTold ? result.fProblem.isEmpty() : !cAllAreTold)
            continue;
        ++failures;
        ADD_FAILURE() << "sequence " << i << ":\n"
                      << result.fScript.left(4000).toStdString() << result.fProblem.toStdString();
    }
}
