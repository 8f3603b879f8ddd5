#include "resampleMonotoneCubic.h"

#include "plainResample.h"

#include <QByteArray>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

const double cNan = std::numeric_limits<double>::quiet_NaN();
const double cInf = std::numeric_limits<double>::infinity();

/// Equal in every bit, but any NaN is as good as another.
bool sameBits(const QVector<double> &a, const QVector<double> &b)
{
    if (a.size() != b.size())
        return false;
    for (int i = 0; i < a.size(); ++i) {
        if (std::memcmp(&a[i], &b[i], sizeof(double)) != 0 && !(std::isnan(a[i]) && std::isnan(b[i])))
            return false;
    }
    return true;
}

QVector<double> ascending(std::mt19937 &random, int n, double zeroSteps)
{
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    QVector<double> x(n);
    double at = unit(random) * 10.0 - 5.0;
    for (double &value : x) {
        value = at;
        if (unit(random) >= zeroSteps)
            at += unit(random) * unit(random);
    }
    return x;
}

} // namespace

TEST(ResampleMonotoneCubic, isTheDefinitionBitForBit)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    for (int round = 0; round < 3000; ++round) {
        const int n = int(random() % 12);
        const int m = int(random() % 40);
        const double zeroSteps = round % 3 == 0 ? 0.3 : 0.0;
        QVector<double> x = ascending(random, n, zeroSteps);
        QVector<double> newX = ascending(random, m, zeroSteps);
        for (int j = 0; j < m && n > 0; ++j) { // some new points fall upon old ones
            if (random() % 4 == 0)
                newX[j] = x[int(random() % unsigned(n))];
        }
        std::sort(newX.begin(), newX.end());
        QVector<double> y(n);
        for (double &value : y)
            value = round % 5 == 0 ? double(random() % 3) : unit(random) - 0.5;
        if (round % 7 == 0) { // what a hostile file can hold
            const double odd[] = {cNan, cInf, -cInf, 1e308, -1e308, 5e-324};
            for (QVector<double> *values : {&x, &y, &newX}) {
                if (!values->isEmpty())
                    (*values)[int(random() % unsigned(values->size()))] = odd[random() % 6];
            }
        }
        QVector<double> expected = y;
        const int code = plainResample(x, expected, newX);
        EXPECT_EQ(resampleMonotoneCubic(x, y, newX), code) << "round " << round;
        EXPECT_TRUE(sameBits(y, expected)) << "round " << round << " n " << n << " m " << m;
    }
}

TEST(ResampleMonotoneCubic, gridIsTheArrayOfItsPoints)
{
    const QVector<double> x{0.0, 0.5, 0.7, 2.0};
    QVector<double> array{1.0, -1.0, 4.0, 4.5};
    QVector<double> grid = array;
    QVector<double> points;
    for (int i = 0; i < 25; ++i)
        points.append(-0.1 + i * 0.1);
    ASSERT_EQ(resampleMonotoneCubic(x, array, points), 0);
    ASSERT_EQ(resampleMonotoneCubic(x, grid, TEvenGrid{-0.1, 0.1, 25}), 0);
    EXPECT_TRUE(sameBits(array, grid));
    EXPECT_EQ(array.first(), 1.0) << "the first point is taken over, wherever it lies";
}

TEST(ResampleMonotoneCubic, keepsShapeAndFollowsASmoothCurve)
{
    QVector<double> x, y;
    for (int i = 0; i < 40; ++i) {
        x.append(0.05 * i + 0.0005 * i * i);
        y.append(std::exp(-2.0 * x.last()));
    }
    const int m = 400;
    const double step = (x.last() - x.first()) / (m - 1);
    ASSERT_EQ(resampleMonotoneCubic(x, y, TEvenGrid{x.first(), step, m}), 0);
    for (int i = 0; i < m; ++i) {
        EXPECT_NEAR(y[i], std::exp(-2.0 * i * step), 2e-4) << "point " << i;
        if (i > 0) {
            EXPECT_LE(y[i], y[i - 1]) << "monotone data stay monotone, point " << i;
        }
    }
}

TEST(ResampleMonotoneCubic, leavesAloneWhatItRefuses)
{
    const QVector<double> y{1.0, 2.0, 4.0};
    const struct
    {
        const char *fWhat;
        QVector<double> fX, fNewX;
    } cases[] = {
        {"a grid that is no finer", {0.0, 1.0, 2.0}, {0.0, 1.0, 2.0}},
        {"x of another size", {0.0, 1.0}, {0.0, 0.5, 1.0, 1.5}},
        {"x that runs down", {2.0, 1.0, 0.0}, {0.0, 0.5, 1.0, 1.5}},
        {"a new x that runs down", {0.0, 1.0, 2.0}, {1.5, 1.0, 0.5, 0.0}},
        {"no points", {}, {0.0, 1.0}},
    };
    for (const auto &c : cases) {
        QVector<double> kept = c.fX.isEmpty() ? QVector<double>() : y;
        const QVector<double> before = kept;
        EXPECT_EQ(resampleMonotoneCubic(c.fX, kept, c.fNewX), 1) << c.fWhat;
        EXPECT_EQ(kept, before) << c.fWhat;
    }
    QVector<double> single{5.0};
    EXPECT_EQ(resampleMonotoneCubic({1.0}, single, QVector<double>{1.0, 2.0}), 1);
    EXPECT_EQ(single, QVector<double>{5.0});
}

TEST(ResampleMonotoneCubic, isLinearInThePoints)
{
    const int n = 300000; // a walk from the start for every point would take 90 thousand million steps
    QVector<double> x(n), y(n);
    for (int i = 0; i < n; ++i) {
        x[i] = i;
        y[i] = i % 7;
    }
    ASSERT_EQ(resampleMonotoneCubic(x, y, TEvenGrid{0.0, 0.5, 2 * n}), 0);
    EXPECT_EQ(y.at(2 * n - 2), (n - 1) % 7);
}
