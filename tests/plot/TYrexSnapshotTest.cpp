#include "TYrexSnapshot.h"

#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace {

/// Bytes that do not compress well, as those of measured values.
QByteArray noise(int size, quint32 seed)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &byte : bytes) {
        seed = seed * 1664525u + 1013904223u;
        byte = char(seed >> 26);
    }
    return bytes;
}

void waitForAll(const std::vector<std::unique_ptr<TYrexSnapshot>> &snapshots)
{
    for (const auto &snapshot : snapshots)
        snapshot->bytes();
}

} // namespace

TEST(TYrexSnapshot, givesBackWhatWasHandedOverBeforeAndAfterItIsCompressed)
{
    TYrexSnapshot snapshot;
    EXPECT_EQ(snapshot.bytes(), 0);
    EXPECT_TRUE(snapshot.state().isEmpty());
    const QByteArray kept = noise(3 * 256 * 1024 + 17, 5); // several parts, the last one short
    snapshot.take(noise(kept.size(), 5));
    EXPECT_EQ(snapshot.state(), kept);
    EXPECT_GT(snapshot.bytes(), 0);
    EXPECT_LT(snapshot.bytes(), kept.size()) << "two bits of each byte are always the same";
    EXPECT_EQ(snapshot.state(), kept);
    snapshot.take(noise(1000, 6));
    EXPECT_EQ(snapshot.state(), noise(1000, 6)) << "the newer state counts";
    snapshot.take(QByteArray());
    EXPECT_TRUE(snapshot.state().isEmpty());
}

TEST(TYrexSnapshot, whatMemoryHasNoRoomForGoesToAFileAndComesBack)
{
    constexpr int cSize = 1024 * 1024;
    ASSERT_EQ(TYrexSnapshot::keptBytes(), 0);
    TYrexSnapshot::setMostKept(cSize);
    {
        std::vector<std::unique_ptr<TYrexSnapshot>> kept;
        for (quint32 i = 0; i < 4; ++i) {
            kept.push_back(std::make_unique<TYrexSnapshot>());
            kept.back()->take(noise(cSize, i));
            kept.back()->bytes();
        }
        EXPECT_FALSE(kept.front()->isOnDisk());
        EXPECT_TRUE(kept.back()->isOnDisk());
        EXPECT_LE(TYrexSnapshot::keptBytes(), cSize);
        for (quint32 i = 0; i < 4; ++i) {
            EXPECT_EQ(kept.at(i)->state(), noise(cSize, i));
            EXPECT_EQ(kept.at(i)->state(), noise(cSize, i)) << "as often as it is asked for";
        }
        kept.front()->take(noise(10, 7)); // makes room
        EXPECT_FALSE(kept.front()->isOnDisk());
    }
    EXPECT_EQ(TYrexSnapshot::keptBytes(), 0);
    TYrexSnapshot::setMostKept(TYrexSnapshot::cMostKept);
}

TEST(TYrexSnapshot, snapshotsThatGoWhileTheirWorkerRunsLeaveNothingWaiting)
{
    {
        std::vector<std::unique_ptr<TYrexSnapshot>> gone;
        for (quint32 i = 0; i < 20; ++i) {
            gone.push_back(std::make_unique<TYrexSnapshot>());
            gone.back()->take(noise(1024 * 1024, i));
        }
    }
    // a taker is let in again although more than the bound was handed over all in all
    constexpr int cSize = 1024 * 1024;
    TYrexSnapshot::setMostWaiting(2 * cSize);
    std::vector<std::unique_ptr<TYrexSnapshot>> kept;
    for (int i = 0; i < 6; ++i) {
        kept.push_back(std::make_unique<TYrexSnapshot>());
        kept.back()->take(QByteArray(cSize, char(i + 1)));
        EXPECT_LE(TYrexSnapshot::waitingBytes(), 2 * cSize);
    }
    waitForAll(kept);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(kept.at(size_t(i))->state().at(cSize - 1), char(i + 1));
    TYrexSnapshot large; // alone it goes, whatever the bound
    large.take(noise(3 * cSize, 1));
    EXPECT_EQ(large.state(), noise(3 * cSize, 1));
    TYrexSnapshot::setMostWaiting(TYrexSnapshot::cMostWaiting);
}
