#include "SpectrumBuilder.h"
#include "TYrexSpectrumList.h"

#include <gtest/gtest.h>

namespace {

class TCounter : public IStackedListNotifier
{
public:
    void listChanged() override { ++fLists; }
    void currentChanged() override { ++fCurrents; }
    int fLists = 0;
    int fCurrents = 0;
};

void fill(TYrexStack &stack, int count)
{
    for (int i = 0; i < count; ++i)
        stack.append(newSpectrum({double(i), 1.0}, 0, 1));
}

} // namespace

TEST(TStackedData, idsAreReissuedOnlyFromTheEnd)
{
    TYrexStack stack;
    fill(stack, 2);
    delete stack.at(1);
    stack.removeAt(1);
    EXPECT_EQ(stack.lastId(), 0);
    fill(stack, 1);
    EXPECT_EQ(stack.ids(), QList<quint32>({0, 1}));
    delete stack.at(0);
    stack.removeAt(0);
    fill(stack, 1);
    EXPECT_EQ(stack.ids(), QList<quint32>({1, 2})) << "an id in the middle is not issued again";
}

TEST(TStackedData, removalMovesTheCurrentSpectrum)
{
    TYrexStack stack;
    fill(stack, 4);
    const auto remove = [&stack](int index) {
        delete stack.at(index);
        stack.removeAt(index);
    };
    stack.setCurrent(2);
    remove(3);
    EXPECT_EQ(stack.current(), 2);
    remove(0);
    EXPECT_EQ(stack.current(), 1);
    remove(1);
    EXPECT_EQ(stack.current(), 0) << "the current one went";
    remove(0);
    EXPECT_EQ(stack.currentSpectrum(), nullptr);
    fill(stack, 1);
    EXPECT_EQ(stack.current(), 0);
}

TEST(TStackedData, aHiddenSpectrumPassesCurrentOnCyclically)
{
    TYrexStack stack;
    fill(stack, 3);
    stack.setHidden(0, true);
    stack.setCurrent(0);
    EXPECT_EQ(stack.current(), 1);
    stack.setHidden(2, true);
    stack.setCurrent(2);
    EXPECT_EQ(stack.current(), 1);
    stack.setHidden(1, true);
    stack.setCurrent(2);
    EXPECT_EQ(stack.current(), 2) << "all hidden: no endless walk";
    stack.setCurrent(7);
    EXPECT_EQ(stack.current(), 2);
}

TEST(TStackedData, selectionIsKeptAsItsComplement)
{
    TYrexStack stack;
    fill(stack, 3);
    EXPECT_EQ(stack.selectedIndices(false, false), QVector<int>({0, 1, 2}));
    stack.setDeselected(1, true);
    stack.setHidden(2, true);
    EXPECT_EQ(stack.selectedIndices(false, true), QVector<int>({0, 2}));
    EXPECT_EQ(stack.selectedIndices(true, true), QVector<int>({0}));
    stack.setCurrent(0);
    stack.setDeselected(0, true);
    stack.setDeselected(2, true);
    EXPECT_EQ(stack.selectedIndices(false, true), QVector<int>({0})) << "falls back to the current one";
    EXPECT_TRUE(stack.selectedIndices(false, false).isEmpty());
}

TEST(TStackedData, classesGroupInOrderOfFirstAppearance)
{
    TYrexStack stack;
    fill(stack, 4);
    stack.at(1)->setSpectrumClass("A");
    stack.at(2)->setSpectrumClass(" A ");
    const auto groups = stack.classGroups(false);
    ASSERT_EQ(groups.size(), 2);
    EXPECT_EQ(groups.at(0).first, "");
    EXPECT_EQ(groups.at(0).second.size(), 2);
    EXPECT_EQ(groups.at(1).first, "A");
    stack.setGrouped(7);
    EXPECT_EQ(stack.displayPositionOf(3), 0);
    EXPECT_EQ(stack.displayPositionOf(2), 1);
    EXPECT_EQ(stack.displayPositionOf(9), -1);
    EXPECT_EQ(stack.displayPositions(), QVector<int>({0, 1, 1, 0}));
    stack.setGrouped(2);
    EXPECT_EQ(stack.grouped(), 0);
}

TEST(TStackedData, displayPositionsFollowOrderAndVisibility)
{
    TYrexStack stack;
    fill(stack, 3);
    stack.setOrder({2, 9, 0});
    EXPECT_EQ(stack.order(), QList<quint32>({2, 0, 1})) << "foreign ids go, missing ones are appended";
    EXPECT_EQ(stack.displayPositionOf(0), 1);
    EXPECT_EQ(stack.displayPositionOf(-1), -1);
    EXPECT_EQ(stack.displayPositionOf(3), -1);
    stack.setHidden(2, true);
    EXPECT_EQ(stack.displayPositionOf(0), 0);
    EXPECT_EQ(stack.displayPositionOf(2), -1);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(stack.displayPositions().at(i), stack.displayPositionOf(i));
}

TEST(TStackedData, insertsIssueFreshIdsAndTellNotifiers)
{
    TYrexStack stack;
    TCounter counter;
    stack.addNotifier(&counter);
    stack.addNotifier(&counter);
    fill(stack, 2);
    EXPECT_EQ(counter.fLists, 2) << "a notifier stands in the list once";
    stack.insertAt(1, {newSpectrum({1}, 0, 1), newSpectrum({2}, 0, 1)});
    EXPECT_EQ(stack.ids(), QList<quint32>({0, 2, 3, 1}));
    EXPECT_EQ(stack.current(), 1);
    EXPECT_EQ(counter.fLists, 3);
    TYrexSpectrum *old = stack.at(0);
    stack.replaceAt(0, newSpectrum({5}, 0, 1));
    delete old;
    EXPECT_EQ(stack.idOf(0), 0u);
    stack.removeNotifier(&counter);
    fill(stack, 1);
    EXPECT_EQ(counter.fLists, 4);
}

TEST(TStackedData, readingASnapshotBackKeepsTheCurrentIndexWhereItCan)
{
    const auto spectra = [](int count) {
        TYrexSpectrumList list;
        for (int i = 0; i < count; ++i)
            list.append(newSpectrum({1.0}, 0, 1));
        return list;
    };
    TYrexStack stack;
    fill(stack, 3);
    stack.setCurrent(2);
    stack.restore(spectra(3), {0, 1, 2}, {}, {}, {}, 0);
    EXPECT_EQ(stack.current(), 2);
    stack.restore(spectra(2), {0, 1}, {}, {}, {}, 0);
    EXPECT_EQ(stack.current(), 0);
}

TEST(TStackedData, storedIdsThatLeaveNoRoomForNewOnesAreIssuedAgain)
{
    for (const quint32 large : {0xffffffffu, 0x80000000u, 0x7fffffffu, 0x7ffffffeu}) {
        TYrexStack stack;
        stack.restore({newSpectrum({1.0}, 0, 1), newSpectrum({1.0}, 0, 1)}, {0, large}, {large, large}, {large},
                      {large, 0}, 0);
        fill(stack, 2);
        EXPECT_EQ(stack.ids(), QList<quint32>({0, 1, 2, 3})) << large;
        EXPECT_EQ(stack.order(), QList<quint32>({0, 1, 2, 3})) << large;
        EXPECT_TRUE(stack.hidden().isEmpty() && stack.deselected().isEmpty()) << large;
    }
}
