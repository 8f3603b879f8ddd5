#include "TCliJobs.h"

#include <QVector>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

TCliJobResult resultOf(int index)
{
    TCliJobResult result;
    result.fOutput = QByteArray(index % 3 == 0 ? 300000 : 3, char('a' + index % 26)) + QByteArray::number(index);
    result.fErrors = QStringList{QString::number(index)};
    result.fHasFailed = index % 2 == 1;
    result.fIsWhole = true;
    return result;
}

} // namespace

TEST(TCliJobs, resultsComeInOrderAndAWorkerThatDiesCostsItsInputOnly)
{
    for (const int atOnce : {1, 3, 50}) {
        TCliJobs jobs(atOnce);
        QVector<int> seen;
        const auto work = [](int index) {
            usleep(index % 4 == 0 ? 5000 : 0); // so that others overtake it
            if (index % 10 == 7)
                _exit(3);
            return resultOf(index);
        };
        jobs.run(40, work, [&](int index, const TCliJobResult &result) {
            seen.append(index);
            EXPECT_EQ(result.fIsWhole, index % 10 != 7);
            if (!result.fIsWhole)
                return;
            EXPECT_EQ(result.fOutput, resultOf(index).fOutput);
            EXPECT_EQ(result.fErrors, resultOf(index).fErrors);
            EXPECT_EQ(result.fHasFailed, resultOf(index).fHasFailed);
        });
        ASSERT_EQ(seen.size(), 40);
        for (int i = 0; i < 40; ++i)
            EXPECT_EQ(seen.at(i), i);
    }
    TCliJobs none(2);
    none.run(0, resultOf, [](int, const TCliJobResult &) { ADD_FAILURE(); });
}

TEST(TCliJobs, noFurtherInputsAreBegunAfterAStop)
{
    TCliJobs jobs(2);
    int asked = 0; // each time one is done, whichever of the processes is faster
    int taken = 0;
    jobs.setStopCheck([&] { return ++asked >= 3; });
    jobs.run(100, resultOf, [&](int, const TCliJobResult &) { ++taken; });
    EXPECT_GE(taken, 3);
    EXPECT_LE(taken, 4) << "those under way are finished";
}
