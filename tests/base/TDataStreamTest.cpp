#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <QBuffer>
#include <QColor>
#include <QDateTime>
#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QtEndian>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace {

QByteArray bytesOf(const std::function<void(TDataStream &)> &write)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    write(stream);
    return bytes;
}

void emptyBlock(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    block.endStore();
}

} // namespace

TEST(TDataStream, writesBlocksAsMarkerLengthPayload)
{
    const QByteArray bytes = bytesOf([](TDataStream &s) {
        TDataStreamAdaptor outer(s);
        outer.startStore();
        emptyBlock(s);
        s << quint8(7);
        outer.endStore();
    });
    EXPECT_EQ(bytes.toHex(), "b10cda7a000000000000000d"
                             "b10cda7a0000000000000000"
                             "07");
}

TEST(TDataStream, numbersAreBigEndianDoubles)
{
    EXPECT_EQ(bytesOf([](TDataStream &s) { s << 1.0 << qint32(-2); }).toHex(), "3ff0000000000000fffffffe");
}

TEST(TDataStreamAdaptor, readsAcrossVersions)
{
    // a newer writer put something behind the fields that this reader knows
    const QByteArray bytes = bytesOf([](TDataStream &s) {
        TDataStreamAdaptor block(s);
        block.startStore();
        s << qint32(1) << qint32(2) << qint32(3);
        block.endStore();
        s << qint32(99);
    });
    TDataStream stream(bytes);
    TDataStreamAdaptor block(stream);
    ASSERT_TRUE(block.hasData());
    qint32 value = 0;
    stream >> value;
    EXPECT_EQ(value, 1);
    EXPECT_TRUE(block.hasData()) << "bytes are left in the block";
    block.skipData();
    stream >> value;
    EXPECT_EQ(value, 99);
    EXPECT_TRUE(stream.isGood());
}

TEST(TDataStreamAdaptor, aBlockIsOptionalForHasDataAndObligatoryForABareSkip)
{
    const QByteArray plain = bytesOf([](TDataStream &s) { s << qint32(5); });
    {
        TDataStream stream(plain);
        TDataStreamAdaptor block(stream);
        EXPECT_FALSE(block.hasData());
        block.skipData();
        qint32 value = 0;
        stream >> value;
        EXPECT_EQ(value, 5);
        EXPECT_TRUE(stream.isGood());
    }
    TDataStream stream(plain);
    TDataStreamAdaptor(stream).skipData();
    EXPECT_EQ(stream.status(), QDataStream::ReadCorruptData);

    TDataStream ended{QByteArray()};
    TDataStreamAdaptor(ended).skipData();
    EXPECT_TRUE(ended.isGood()) << "the end of the enclosing block stands for an absent block";
}

TEST(TDataStreamAdaptor, shortBlockGivesZerosNotTheNextItem)
{
    const QByteArray bytes = bytesOf([](TDataStream &s) {
        TDataStreamAdaptor block(s);
        block.startStore();
        s << qint32(1);
        block.endStore();
        s << qint32(0x7fffffff) << qint32(42);
    });
    TDataStream stream(bytes);
    TDataStreamAdaptor block(stream);
    ASSERT_TRUE(block.hasData());
    qint32 first = 0;
    double second = 1.0;
    stream >> first >> second;
    EXPECT_EQ(stream.status(), QDataStream::ReadPastEnd);
    EXPECT_EQ(second, 0.0);
    block.skipData();
    EXPECT_EQ(stream.status(), QDataStream::ReadPastEnd) << "leaving a block does not clear a status";
    stream.resetStatus();
    stream >> first;
    EXPECT_EQ(first, 0x7fffffff) << "but it stands at the block's end";
}

TEST(TDataStreamAdaptor, refusesLengthsBeyondTheEnclosingBlockAndCutsThemWhenTolerant)
{
    QByteArray bytes = bytesOf([](TDataStream &s) {
        TDataStreamAdaptor block(s);
        block.startStore();
        s << qint32(1) << qint32(2);
        block.endStore();
    });
    bytes.chop(4);
    {
        TDataStream stream(bytes);
        TDataStreamAdaptor block(stream);
        EXPECT_FALSE(block.hasData());
        EXPECT_EQ(stream.status(), QDataStream::ReadCorruptData);
    }
    TDataStream stream(bytes);
    stream.setTolerant(true);
    TDataStreamAdaptor block(stream);
    ASSERT_TRUE(block.hasData());
    EXPECT_TRUE(stream.isTruncated());
    qint32 value = 0;
    stream >> value;
    EXPECT_EQ(value, 1);
    EXPECT_FALSE(block.hasData());
}

TEST(TDataStreamAdaptor, refusesEndlessNesting)
{
    QByteArray bytes;
    for (int i = 0; i < 200; ++i)
        bytes.append(QByteArray::fromHex("b10cda7a") +
                     QByteArray::fromHex(QByteArray::number(12 * (199 - i), 16).rightJustified(16, '0')));
    TDataStream stream(bytes);
    std::vector<std::unique_ptr<TDataStreamAdaptor>> blocks;
    int depth = 0;
    for (; depth < 200; ++depth) {
        blocks.push_back(std::make_unique<TDataStreamAdaptor>(stream));
        if (!blocks.back()->hasData())
            break;
    }
    EXPECT_EQ(depth, TDataStreamAdaptor::cMaxDepth);
    EXPECT_EQ(stream.status(), QDataStream::ReadCorruptData);
    while (!blocks.empty())
        blocks.pop_back();
}

TEST(TDataStream, countsAreComparedWithTheBytesLeft)
{
    for (const qint32 count : {-1, 3, std::numeric_limits<qint32>::max()}) {
        const QByteArray bytes = bytesOf([count](TDataStream &s) { s << count << 1.0 << 2.0; });
        TDataStream stream(bytes);
        QVector<double> values{5.0};
        EXPECT_FALSE(stream.readDoubles(values)) << count;
        EXPECT_TRUE(values.isEmpty());
        EXPECT_EQ(stream.status(), QDataStream::ReadCorruptData);
    }
    for (const QByteArray &hex : {QByteArray("7ffffff0"), QByteArray("00000003414243")}) {
        TDataStream text(QByteArray::fromHex(hex));
        QString string;
        text >> string;
        EXPECT_EQ(text.status(), QDataStream::ReadCorruptData) << hex.constData();
    }
}

TEST(TDataStream, doublesRoundTripInBulkAndMatchSingleWrites)
{
    QVector<double> values;
    for (int i = 0; i < 20000; ++i)
        values.append(i * 0.1 - 77.0);
    const QByteArray bulk = bytesOf([&](TDataStream &s) { s.writeDoubles(values); });
    const QByteArray single = bytesOf([&](TDataStream &s) {
        s << qint32(values.size());
        for (const double value : values)
            s << value;
    });
    EXPECT_EQ(bulk, single);
    TDataStream stream(bulk);
    QVector<double> back;
    ASSERT_TRUE(stream.readDoubles(back));
    EXPECT_EQ(back, values);
}

TEST(TDataStream, variantsRoundTripWithTheBytesOfQDataStream)
{
    QVariantMap inner{{"b", 2.5}, {"a", true}, {"list", QVariantList{1, QString("x"), QVariant()}}};
    const QVariantList values{1,
                              2u,
                              qint64(-3),
                              false,
                              QString("text"),
                              QString(),
                              QString(""),
                              QByteArray("bytes"),
                              QUuid("{3d756ac7-4b6e-5a36-a71c-909e0e368d26}"),
                              QColor(1, 2, 3),
                              QDateTime(QDate(2026, 1, 2), QTime(3, 4), Qt::UTC),
                              QPointF(1, 2),
                              QRectF(1, 2, 3, 4),
                              QStringList{"p", "q"},
                              QVariant(QVariant::Int),
                              inner};
    const QByteArray bytes = bytesOf([&](TDataStream &s) { s << QVariant(values); });
    TDataStream stream(bytes);
    QVariant back;
    ASSERT_TRUE(stream.readVariant(back));
    EXPECT_EQ(back.toList(), values);
    EXPECT_TRUE(stream.atLimit());
    EXPECT_EQ(bytesOf([&](TDataStream &s) { s << back; }), bytes);
}

TEST(TDataStream, variantsOfForeignTypesAndEndlessDepthAreCorrupt)
{
    QVariant deep = 1;
    for (int i = 0; i < 18; ++i)
        deep = QVariantList{deep};
    for (const QVariant &bad : {deep, QVariant(QChar('x')), QVariant(QSize(1, 2))}) {
        const QByteArray bytes = bytesOf([&](TDataStream &s) { s << bad; });
        TDataStream stream(bytes);
        QVariant back;
        EXPECT_FALSE(stream.readVariant(back));
        EXPECT_EQ(stream.status(), QDataStream::ReadCorruptData);
    }
}

TEST(TStatusGuard, restoresTheStatusThatWas)
{
    TDataStream stream{QByteArray()};
    {
        TStatusGuard guard(stream);
        qint32 value = 0;
        stream >> value;
        EXPECT_FALSE(stream.isGood());
    }
    EXPECT_TRUE(stream.isGood());
}

namespace {

/// A file of four gigabytes, without the file: a length, then anything.
class THugeDevice : public QIODevice
{
public:
    explicit THugeDevice(quint32 length)
        : fLength(qToBigEndian(length))
    {
        open(ReadOnly | Unbuffered);
    }
    qint64 size() const override { return Q_INT64_C(0x100000000); }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        const qint64 count = qMin<qint64>(maxSize, 1024);
        for (qint64 i = 0; i < count; ++i)
            data[i] = pos() + i < 4 ? reinterpret_cast<const char *>(&fLength)[pos() + i] : 'x';
        return count;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    quint32 fLength;
};

} // namespace

TEST(TDataStream, arraysThatQtCannotHoldAreCorruptHoweverLongTheFile)
{
    const auto expectCorrupt = [](quint32 length, auto value) {
        THugeDevice device(length);
        TDataStream stream(&device);
        stream >> value;
        EXPECT_EQ(stream.status(), QDataStream::ReadCorruptData) << length;
        EXPECT_TRUE(value.isEmpty());
    };
    expectCorrupt(0x90000000u, QByteArray());
    expectCorrupt(0x90000000u, QString());
    THugeDevice device(0x10000000);
    TDataStream stream(&device);
    QVector<double> values;
    EXPECT_FALSE(stream.readDoubles(values));
    EXPECT_TRUE(values.isEmpty());
}
