#include "TYrexDPLib.h"

#include "ChainHelpers.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <QDataStream>

using TPeak = TYrexDPLib::TYrexDPPeak;

class PeakList : public ::testing::Test
{
protected:
    ~PeakList() override { TYrexDPLib::deleteAllPeaks(fPeaks); }
    TPeak *add(double position, qint32 flags = 0)
    {
        fPeaks.append(new TPeak);
        fPeaks.last()->position = position;
        fPeaks.last()->flags = flags;
        return fPeaks.last();
    }
    QByteArray stored() const
    {
        QByteArray bytes;
        TDataStream out(&bytes, QIODevice::WriteOnly);
        TYrexDPLib::writePeakList(out, fPeaks);
        return bytes;
    }

    TYrexDPLib::TYrexDPPeakList fPeaks;
};

TEST_F(PeakList, isStoredInItsLayout)
{
    TPeak *peak = add(12.5, 1);
    peak->width = 3.0;
    peak->intensity = -0.5;
    peak->reservedC = 7;
    peak->reservedD = 8.0;
    peak->reservedE = 9;
    peak->reservedF = 10; // not stored
    peak->positive = false;
    peak->annotation = "CH";
    peak->color = QColor(1, 2, 3, 4);

    QByteArray fields;
    QDataStream out(&fields, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_12);
    out << quint32(0xB10CDA7A) << quint64(0) << 12.5 << 3.0 << -0.5 << 0.0 << 0.0 << qint32(7) << qint32(9) << qint32(1)
        << 8.0 << QString("CH") << peak->id << false << QUuid() << QString() << QColor(1, 2, 3, 4);
    QByteArray expected;
    QDataStream file(&expected, QIODevice::WriteOnly);
    file << quint32(0xB10CDA7A) << quint64(0);
    file << quint32(0xB10CDA7A) << quint64(4 + 12 + fields.size()) << qint32(1);
    file << quint32(0xB10CDA7A) << quint64(fields.size());
    EXPECT_EQ(stored().toHex(), (expected + fields).toHex());
}

TEST_F(PeakList, comesBackInOrderBehindWhatTheListHeld)
{
    add(5.0, 1)->annotation = "first";
    add(2.0)->color = Qt::red;
    TYrexDPLib::TYrexDPPeakList read = {new TPeak};
    TDataStream in(stored());
    TYrexDPLib::readPeakList(in, read);
    ASSERT_EQ(read.size(), 3);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(read.at(i + 1)->id, fPeaks.at(i)->id);
        EXPECT_EQ(read.at(i + 1)->flags, fPeaks.at(i)->flags);
        EXPECT_EQ(read.at(i + 1)->annotation, fPeaks.at(i)->annotation);
        EXPECT_EQ(read.at(i + 1)->color, fPeaks.at(i)->color);
    }
    EXPECT_TRUE(in.isGood() && in.atLimit());
    TYrexDPLib::deleteAllPeaks(read);
    EXPECT_TRUE(read.isEmpty());
}

TEST_F(PeakList, thatIsDamagedLeavesTheListAsItWas)
{
    add(5.0);
    const QByteArray whole = stored();
    for (int length = 12; length < whole.size(); ++length) {
        TYrexDPLib::TYrexDPPeakList read;
        TDataStream in(whole.left(length));
        TYrexDPLib::readPeakList(in, read);
        EXPECT_TRUE(read.isEmpty()) << length;
    }
    QByteArray manyPeaks = whole;
    manyPeaks.replace(24, 4, "\x7f\xff\xff\xff"); // the count
    TYrexDPLib::TYrexDPPeakList read;
    TDataStream in(manyPeaks);
    TYrexDPLib::readPeakList(in, read);
    EXPECT_TRUE(read.isEmpty());
    EXPECT_FALSE(in.isGood());
}

TEST_F(PeakList, findsPeaksByIdAndByCloseness)
{
    add(10.0);
    const TPeak copy = *add(20.0);
    EXPECT_EQ(TYrexDPLib::indexOfId(fPeaks, copy.id), 1);
    EXPECT_EQ(TYrexDPLib::indexOfId(fPeaks, TPeak().id), -1); // a fresh peak has a fresh id
    EXPECT_TRUE(TYrexDPLib::hasPeakAt(fPeaks, 20.4));
    EXPECT_FALSE(TYrexDPLib::hasPeakAt(fPeaks, 19.0));
}

TEST_F(PeakList, dropsOnlyAutoPickedPeaks)
{
    add(1.0, 1);
    add(2.0, 2);
    add(3.0, 3);
    add(4.0);
    add(5.0, 1)->annotation = "named before that made a peak manual";
    TYrexDPLib::deleteAutoPeaks(fPeaks);
    ASSERT_EQ(fPeaks.size(), 3);
    EXPECT_EQ(fPeaks.at(0)->position, 2.0);
    EXPECT_EQ(fPeaks.at(1)->position, 4.0);
    EXPECT_EQ(fPeaks.at(2)->flags, 0);
}
