#include "plot/TRanges.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <cmath>
#include <gtest/gtest.h>

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
