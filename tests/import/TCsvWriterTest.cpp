#include "TCsvWriter.h"

#include <QBuffer>
#include <QMap>
#include <QTextStream>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

using TRangeList = QVector<QPair<double, double>>;

QByteArray written(const QVector<TCsvSeries> &series)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(TCsvWriter::write(series, &buffer));
    return buffer.data();
}

bool inRanges(const TRangeList &ranges, double x)
{
    for (const auto &range : ranges) {
        if (x >= qMin(range.first, range.second) && x <= qMax(range.first, range.second))
            return true;
    }
    return false;
}

/// The same with a map per series, a set of all x and a text stream: the judge.
QByteArray plainlyWritten(const QVector<TCsvSeries> &series)
{
    QVector<QMap<double, double>> maps;
    QMap<double, bool> all;
    for (const TCsvSeries &one : series) {
        QMap<double, double> map;
        for (int i = 0; i < one.fX.size(); ++i) {
            map[one.fX[i]] = one.fY[i];
            all[one.fX[i]] = true;
        }
        maps.append(map);
    }
    QByteArray bytes;
    QTextStream out(&bytes);
    out.setRealNumberPrecision(17);
    for (const double x : all.keys()) {
        out << x;
        for (int s = 0; s < maps.size(); ++s) {
            if (maps[s].contains(x) && inRanges(series[s].fVisible, x))
                out << "," << maps[s][x];
            else if (x == all.firstKey() || x == all.lastKey())
                out << ",0.0";
            else
                out << ",NaN";
        }
        out << "\n";
    }
    out.flush();
    return bytes;
}

/// Takes nothing behind the first bytes, like a full disk.
class TFullDevice : public QIODevice
{
public:
    TFullDevice() { open(QIODevice::WriteOnly); }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64) override { return -1; }
};

} // namespace

TEST(CsvWriter, numbersAreThoseOfATextStream)
{
    std::mt19937_64 random(5);
    QVector<double> values{0.0,
                           -0.0,
                           1.0,
                           1e16,
                           1e17,
                           123456789012345678.0,
                           1e-4,
                           1e-5,
                           5e-324,
                           1e308,
                           0.1,
                           -1e22,
                           9999999999999999.0,
                           std::numeric_limits<double>::infinity(),
                           -std::numeric_limits<double>::infinity(),
                           std::numeric_limits<double>::quiet_NaN()};
    for (int i = 0; i < 60000; ++i) {
        const quint64 bits = random();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        if (i % 3 == 0) // ties of the last digit
            value = double(bits >> (11 + random() % 30)) / double(1 << (random() % 28));
        values.append(i % 2 || i % 3 == 0 ? value : double(qint64(bits >> (random() % 64))) / 1000.0);
    }
    for (const double value : qAsConst(values)) {
        QByteArray text, expected;
        TCsvWriter::appendNumber(&text, value);
        QTextStream out(&expected);
        out.setRealNumberPrecision(17);
        out << value;
        out.flush();
        ASSERT_EQ(text, expected);
    }
}

TEST(CsvWriter, padsSpectraToTheUnionOfTheirX)
{
    const TRangeList all{{0.0, 100.0}};
    EXPECT_EQ(written({{{1.0, 2.0}, {5.0, 6.5}, all}, {{3.0, 4.0}, {7.0, 8.0}, all}}), "1,5,0.0\n"
                                                                                       "2,6.5,NaN\n"
                                                                                       "3,NaN,7\n"
                                                                                       "4,0.0,8\n");
    // a spectrum that runs down, and a hidden piece; the ends of a range are seen
    EXPECT_EQ(written({{{4.0, 3.0, 2.0, 1.0}, {40.0, 30.0, 20.0, 10.0}, {{1.0, 2.0}, {5.0, 4.0}}}}), "1,10\n"
                                                                                                     "2,20\n"
                                                                                                     "3,NaN\n"
                                                                                                     "4,40\n");
    EXPECT_EQ(written({{{1.0, 2.0, 3.0}, {1.0, 2.0, 3.0}, {}}}), "1,0.0\n2,NaN\n3,0.0\n");
    EXPECT_EQ(written({{{}, {}, all}}), "");
}

TEST(CsvWriter, isWhatMapsWouldGive)
{
    std::mt19937 random(6);
    for (int round = 0; round < 400; ++round) {
        QVector<TCsvSeries> series(1 + int(random() % 4));
        for (TCsvSeries &one : series) {
            const int n = int(random() % 12);
            const bool sorted = random() % 3;
            for (int i = 0; i < n; ++i) {
                one.fX.append(sorted ? i * 0.5 : double(random() % 10) - 4.0);
                one.fY.append(double(random() % 1000) / 7.0);
            }
            if (random() % 2)
                std::reverse(one.fX.begin(), one.fX.end());
            for (int i = int(random() % 3); i > 0; --i)
                one.fVisible.append({double(random() % 8) - 2.0, double(random() % 8)});
        }
        ASSERT_EQ(written(series), plainlyWritten(series)) << "round " << round;
    }
}

TEST(CsvWriter, saysWhenTheDeviceIsFull)
{
    TFullDevice full;
    EXPECT_FALSE(TCsvWriter::write({{{1.0}, {2.0}, {{0.0, 3.0}}}}, &full));
}
