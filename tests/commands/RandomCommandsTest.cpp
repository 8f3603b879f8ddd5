// Whatever is done, in whatever order: undo brings every item back to the last byte, and redo forth again.
#include "TDice.h"
#include "TRandomSteps.h"

#include <gtest/gtest.h>

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int cSequences = 40; // for each seed; under the sanitizers a sequence takes many times as long
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr int cSequences = 40;
#else
constexpr int cSequences = 400;
#endif
#else
constexpr int cSequences = 400;
#endif

constexpr quint32 cSeeds[] = {1, 20, 333, 4444, 55555};
constexpr int cReported = 8; // failures of a run that are shrunk and told

} // namespace

TEST(RandomCommands, undoAndRedoComeToTheSameStates)
{
    int failures = 0;
    bool isTold = false; // of a longer search by hand
    const int told = qEnvironmentVariableIntValue("YREX_RANDOM_SEQUENCES", &isTold);
    const int sequences = isTold ? told : cSequences;
    for (const quint32 seed : cSeeds) {
        TDice dice(seed);
        for (int i = 0; i < sequences; ++i) {
            const quint32 itemsSeed = dice.seed();
            const TRandomSteps steps = randomSteps(dice.seed());
            if (runSteps(itemsSeed, steps).isEmpty())
                continue;
            if (++failures <= cReported)
                ADD_FAILURE() << "seed " << seed << ", sequence " << i << ", items " << itemsSeed << ":\n"
                              << runSteps(itemsSeed, shrunk(itemsSeed, steps)).toStdString();
        }
    }
    EXPECT_EQ(failures, 0);
}
