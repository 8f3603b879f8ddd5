#include "plot/TRanges.h"
#include "plot/TAxisMap.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr double cNaN = std::numeric_limits<double>::quiet_NaN();

TRanges pieces(std::initializer_list<TRange> list)
{
    TRanges ranges;
    for (const TRange &piece : list)
        ranges.appendRange(piece);
    return ranges;
}

} // namespace

TEST(TRange, comparesOnSortedLimits)
{
    const TRange visible(400.0, 100.0);
    EXPECT_EQ(visible.compare(TRange(150, 200)), 0);
    EXPECT_EQ(visible.compare(TRange(100, 400)), 0);
    EXPECT_EQ(visible.compare(TRange(500, 50)), 5);
    EXPECT_EQ(visible.compare(TRange(100, 500)), 5);
    EXPECT_EQ(visible.compare(TRange(50, 200)), 2);
    EXPECT_EQ(visible.compare(TRange(300, 500)), 3);
    EXPECT_EQ(visible.compare(TRange(0, 50)), 1);
    EXPECT_EQ(visible.compare(TRange(450, 500)), 4);
    EXPECT_EQ(visible.compare(TRange(0, 100)), 1) << "a single common point";
    EXPECT_EQ(visible.compare(TRange(400, 500)), 4);
}

TEST(TRanges, aDefaultListHasNoCuts)
{
    const TRanges none;
    EXPECT_FALSE(none.hasCuts(TRange(0, 10)));
    EXPECT_TRUE(none.isVisible(1e9));
    EXPECT_FALSE(none.isVisible(cNaN));
    EXPECT_EQ(none.adjustTo(TRange(8, 2)).toVector(), (QVector<TRange>{{2, 8}}));
    TRanges still;
    EXPECT_FALSE(still.hide(TRange(1, 2)));
}

TEST(TRanges, mergesWhatMeets)
{
    EXPECT_EQ(pieces({{5, 6}, {1, 2}, {3, 4}}).toVector(), (QVector<TRange>{{1, 2}, {3, 4}, {5, 6}}));
    EXPECT_EQ(pieces({{1, 2}, {5, 6}, {2, 3}}).toVector(), (QVector<TRange>{{1, 3}, {5, 6}}));
    EXPECT_EQ(pieces({{1, 2}, {3, 4}, {5, 6}, {5.5, 1.5}}).toVector(), (QVector<TRange>{{1, 6}}));
    EXPECT_TRUE(pieces({{cNaN, 4}}).isEmpty());
}

TEST(TRanges, hidesShowsAndInverts)
{
    TRanges ranges(TRange(10, 0));
    EXPECT_TRUE(ranges.hide(TRange(4, 3)));
    EXPECT_TRUE(ranges.hide(TRange(8, 20)));
    EXPECT_EQ(ranges.toVector(), (QVector<TRange>{{0, 3}, {4, 8}}));
    EXPECT_EQ(ranges.invert(TRange(10, 0)).toVector(), (QVector<TRange>{{3, 4}, {8, 10}}));
    EXPECT_TRUE(ranges.hasCuts(TRange(0, 10)));
    EXPECT_FALSE(ranges.isVisible(3.5));
    EXPECT_TRUE(ranges.isVisible(3.0));
    EXPECT_EQ(ranges.adjustTo(TRange(7, 2)).toVector(), (QVector<TRange>{{2, 3}, {4, 7}}));
    EXPECT_TRUE(ranges.adjustTo(TRange(3.2, 3.8)).isEmpty());

    const TRanges before = ranges;
    EXPECT_FALSE(ranges.hide(TRange(-1, 11))) << "nothing would stay";
    EXPECT_EQ(ranges, before);
    ranges.show(TRange(3, 4));
    EXPECT_EQ(ranges.toVector(), (QVector<TRange>{{0, 8}}));
}

TEST(TRanges, followsTheFullScale)
{
    TRanges ranges = pieces({{0, 3}, {4, 10}});
    ranges.encloseIn(TRange(10, 0), TRange(-2, 12));
    EXPECT_EQ(ranges.toVector(), (QVector<TRange>{{-2, 3}, {4, 12}}));
    ranges.encloseIn(TRange(-2, 12), TRange(5, 20));
    EXPECT_EQ(ranges.toVector(), (QVector<TRange>{{5, 20}}));

    TRanges inner = pieces({{2, 3}});
    inner.encloseIn(TRange(0, 10), TRange(5, 6));
    EXPECT_EQ(inner.toVector(), (QVector<TRange>{{5, 6}})) << "nothing left: all";
}

TEST(TRanges, keepsItsListWhenTheStreamIsBad)
{
    QByteArray bytes;
    {
        TDataStream out(&bytes, QIODevice::WriteOnly);
        pieces({{0, 3}, {4, 10}}).store(out);
    }
    TRanges read(TRange(0, 1));
    TDataStream in(bytes);
    read.load(in);
    EXPECT_EQ(read, pieces({{0, 3}, {4, 10}}));
    for (int length = 0; length < bytes.size(); ++length) {
        TRanges kept(TRange(0, 1));
        TDataStream cut(bytes.left(length));
        kept.load(cut);
        EXPECT_EQ(kept, TRanges(TRange(0, 1))) << "at length " << length;
    }
}

TEST(TAxisMap, piecesShareTheLengthAndGapsAreHidden)
{
    // 4000 .. 400 shown on 0 .. 1000, 3000 .. 2000 hidden, a gap of 20
    const TAxisMap map(pieces({{400, 2000}, {3000, 4000}}), TRange(4000, 400), 0.0, 1000.0, 20.0);
    double place = -1.0;
    ASSERT_TRUE(map.toPlace(4000, place));
    EXPECT_DOUBLE_EQ(place, 0.0);
    ASSERT_TRUE(map.toPlace(3000, place));
    EXPECT_NEAR(place, 980.0 * 1000 / 2600, 1e-9);
    ASSERT_TRUE(map.toPlace(2000, place));
    EXPECT_NEAR(place, 980.0 * 1000 / 2600 + 20.0, 1e-9);
    ASSERT_TRUE(map.toPlace(400, place));
    EXPECT_DOUBLE_EQ(place, 1000.0);
    EXPECT_FALSE(map.toPlace(2500, place));
    EXPECT_FALSE(map.toPlace(cNaN, place));
    EXPECT_EQ(place, 1000.0) << "left as it was";
    ASSERT_TRUE(map.toPlace(300, place)) << "outside the scale";
    EXPECT_GT(place, 1000.0);

    for (const double value : {3999.0, 3000.0, 1999.0, 401.0, 100.0}) {
        ASSERT_TRUE(map.toPlace(value, place));
        EXPECT_NEAR(map.toValue(place), value, 1e-9);
    }
    EXPECT_NEAR(map.toValue(980.0 * 1000 / 2600 + 5.0), 3000.0, 1e-9) << "the nearer limit";
    EXPECT_NEAR(map.toValue(980.0 * 1000 / 2600 + 15.0), 2000.0, 1e-9);
}

TEST(TAxisMap, answersNothingWhenNothingIsVisible)
{
    const TAxisMap map(pieces({{0, 1}}), TRange(2, 3), 0.0, 100.0, 20.0);
    double place = 7.0;
    EXPECT_FALSE(map.toPlace(2.5, place));
    EXPECT_EQ(map.density(), 0.0);
    EXPECT_EQ(map.toValue(50.0), 2.0);
}

TEST(TRanges, piecesOfAForeignStreamAreSortedAndThoseWithoutAPlaceDropped)
{
    constexpr int cPieces = 200; // enough for a sort that trusts its comparison to leave the array
    QByteArray bytes;
    {
        TDataStream out(&bytes, QIODevice::WriteOnly);
        TDataStreamAdaptor block(out);
        block.startStore();
        out << qint32(2 * cPieces);
        for (int i = 0; i < cPieces; ++i) {
            const double from = 10.0 * (i * 77 % cPieces);
            out << from + 1.0 << from << std::nan("") << double(i);
        }
    }
    TRanges ranges;
    TDataStream in(bytes);
    ranges.load(in);
    const QVector<TRange> pieces = ranges.toVector();
    ASSERT_EQ(pieces.size(), cPieces);
    for (int i = 0; i < cPieces; ++i)
        EXPECT_EQ(pieces.at(i), TRange(10.0 * i, 10.0 * i + 1.0)) << i;
}
