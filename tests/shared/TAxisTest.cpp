#include "plot/TAxis.h"
#include "plot/TAxisTicks.h"
#include "stream/TDataStream.h"
#include <gtest/gtest.h>
#include <limits>

namespace {

/// Labels of 15 units a character, as they come out for the usual font.
double extent(const QString &text)
{
    return 15.0 * text.size();
}

QStringList labels(double from, double to, double length = 1400.0)
{
    return TAxisTicks(TRange(from, to), length, extent).labels();
}

} // namespace

TEST(TAxis, refusesLimitsThatAreNotFinite)
{
    TAxis axis;
    axis.setFullScale(4000, 400);
    axis.setScale(3000, 2000);
    axis.setScale(std::numeric_limits<double>::infinity(), 1);
    axis.setFullScale(std::numeric_limits<double>::quiet_NaN(), 1);
    axis.setFullScale(-1.5e308, 1.5e308); // the span is not
    EXPECT_EQ(axis.getScale(), TRange(3000, 2000));
    EXPECT_EQ(axis.getFullScale(), TRange(4000, 400));
    EXPECT_EQ(axis.direction(), 1);
}

TEST(TAxis, aNewFullScaleKeepsCutsOrReplacesTheScale)
{
    TAxis axis;
    axis.setFullScale(4000, 400);
    axis.setScale(3000, 2000);
    axis.setFullScale(3500, 100);
    EXPECT_EQ(axis.getScale(), TRange(3000, 2000));
    axis.setFullScale(2500, 100);
    EXPECT_EQ(axis.getScale(), TRange(2500, 2000));
    axis.setFullScale(100, 2200);
    EXPECT_EQ(axis.getScale(), TRange(2000, 2200)) << "takes the direction of the full scale";
    axis.setFullScale(0, 1);
    EXPECT_EQ(axis.getScale(), TRange(0, 1));
}

TEST(TAxis, scalesAroundZeroAndDrawsAZeroSpan)
{
    TAxis axis;
    axis.setFullScale(-1, 3);
    axis.setScale(0.5, 2);
    axis.applyScaleFactor(2.0);
    EXPECT_EQ(axis.getScale(), TRange(0.25, 1));
    EXPECT_EQ(axis.getFullScale(), TRange(-0.5, 1.5));
    axis.applyScaleFactor(0.0);
    axis.applyScaleFactor(-1.0);
    EXPECT_EQ(axis.getScale(), TRange(0.25, 1));
    axis.setScale(7, 7);
    EXPECT_EQ(axis.drawnScale(), TRange(6.5, 7.5));
}

TEST(TAxis, comesBackFromTheStream)
{
    TAxis axis(axisAtRight);
    axis.setFullScale(4000, 400);
    axis.setScale(1800, 600);
    axis.setLabel("Wavenumber [cm^-1]");
    axis.setVisible(false);
    QByteArray bytes;
    {
        TDataStream out(&bytes, QIODevice::WriteOnly);
        axis.store(out);
    }
    TAxis read;
    TDataStream in(bytes);
    read.load(in);
    EXPECT_EQ(read, axis);
}

TEST(TAxisTicks, givesRoundNumbers)
{
    struct TCase
    {
        double from, to;
        QString expected;
    };
    const QString minus(QChar(0x2212));
    const TCase cCases[] = {
        {4000, 400, "500 1000 1500 2000 2500 3000 3500 4000"},
        {0, 1, "0.0 0.2 0.4 0.6 0.8 1.0"},
        {0, 0.9, "0.0 0.1 0.2 0.3 0.4 0.5 0.6 0.7 0.8 0.9"},
        {-0.05, 0.12, minus + "0.04 " + minus + "0.02 0.00 0.02 0.04 0.06 0.08 0.10 0.12"},
        {0, 20, "0.0 2.5 5.0 7.5 10.0 12.5 15.0 17.5 20.0"},
        {1600, 1640, "1600 1605 1610 1615 1620 1625 1630 1635 1640"},
        {0, 100000, "0 20000 40000 60000 80000 100000"},
    };
    for (const TCase &each : cCases)
        EXPECT_EQ(labels(each.from, each.to).join(' '), each.expected) << each.from << " .. " << each.to;
}

TEST(TAxisTicks, takesAPowerOfTenOutOfFarNumbers)
{
    const TAxisTicks large(TRange(0, 250000), 1400, extent);
    EXPECT_EQ(large.exponent(), 5);
    EXPECT_EQ(large.exponentText(), QStringLiteral(u"\u00D710^5"));
    EXPECT_EQ(large.labels().last(), "2.5");
    const TAxisTicks small(TRange(-0.0004, 0.0008), 1400, extent);
    EXPECT_EQ(small.exponent(), -4);
    EXPECT_EQ(small.exponentText(), QStringLiteral(u"\u00D710^-4"));
    EXPECT_EQ(TAxisTicks(TRange(0, 0.01), 1400, extent).exponent(), 0);
    EXPECT_EQ(TAxisTicks(TRange(0, 0.01), 1400, extent).labels().last(), "0.010");
}

TEST(TAxisTicks, keepsItsPromisesForManyScales)
{
    for (int power = -12; power <= 12; ++power) {
        for (const double mantissa : {1.0, 1.3, 1.9, 2.6, 3.7, 4.9, 7.3, 9.99}) {
            for (const double start : {0.0, -0.37, -1.0, 5.1, 83.0}) {
                const double span = mantissa * std::pow(10.0, power);
                const TRange scale(start * span, (start + 1.0) * span);
                const TAxisTicks ticks(scale, 1400, extent);
                const int count = ticks.major().size();
                ASSERT_GE(count, TAxisTicks::cMinNumbers) << scale.a << " .. " << scale.b;
                ASSERT_LE(count, TAxisTicks::cMaxNumbers);
                ASSERT_EQ(count, ticks.labels().size());
                const double room = 1400 * ticks.step() / scale.span();
                for (int i = 0; i < count; ++i) {
                    EXPECT_LE(1.15 * extent(ticks.labels().at(i)), room) << ticks.labels().join(' ').toStdString();
                    EXPECT_FALSE(ticks.labels().at(i).contains('-'));
                    const double shown = QString(ticks.labels().at(i)).replace(QChar(0x2212), '-').toDouble();
                    EXPECT_NEAR(shown * std::pow(10.0, ticks.exponent()), ticks.major().at(i), 1e-9 * ticks.step())
                        << "the number says the value";
                    EXPECT_EQ(ticks.labels().at(i).section('.', 1).size(),
                              ticks.labels().first().section('.', 1).size());
                }
                for (const double value : ticks.minor())
                    EXPECT_TRUE(value > scale.lo() - span * 1e-6 && value < scale.hi() + span * 1e-6);
            }
        }
    }
}

TEST(TAxisTicks, minorTicksFollowTheStep)
{
    const TAxisTicks byFive(TRange(0, 1000), 800, extent); // step 200
    EXPECT_EQ(byFive.step(), 200.0);
    EXPECT_EQ(byFive.minor().size(), 5 * 3);
    EXPECT_DOUBLE_EQ(byFive.minor().first(), 50.0);
    const TAxisTicks cm(TRange(4000, 400), 1400, extent); // step 500
    EXPECT_DOUBLE_EQ(cm.minor().first(), 400.0);
    EXPECT_DOUBLE_EQ(cm.minor().at(1), 600.0);
}

TEST(TAxisTicks, survivesScalesThatHaveNoNumbers)
{
    const double infinity = std::numeric_limits<double>::infinity();
    for (const TRange &scale :
         {TRange(1, 1), TRange(0, infinity), TRange(1e20, 1e20 + 1e5), TRange(-1.7e308, 1.7e308), TRange(0, 1e-300)})
        EXPECT_TRUE(TAxisTicks(scale, 1000, extent).major().isEmpty()) << scale.a << " .. " << scale.b;
    EXPECT_TRUE(TAxisTicks(TRange(0, 1), 0.0, extent).major().isEmpty());
    EXPECT_FALSE(TAxisTicks(TRange(0, 1), 5.0, extent).major().isEmpty()) << "hardly any room";
    EXPECT_FALSE(TAxisTicks(TRange(1e9, 1e9 + 1e-3), 1400, extent).major().isEmpty());
}

TEST(TAxisTicks, obeysTheOptions)
{
    TAxisTicks::TOptions options;
    options.step = 0.125;
    options.minorCount = 1;
    const TAxisTicks ticks(TRange(0, 0.5), 1400, extent, options);
    EXPECT_EQ(ticks.labels().join(' '), "0.000 0.125 0.250 0.375 0.500");
    EXPECT_EQ(ticks.minor().size(), 4);
    options = TAxisTicks::TOptions();
    options.numberForm = fixedNumbers;
    options.decimals = 3;
    EXPECT_EQ(TAxisTicks(TRange(0, 1e6), 2000, extent, options).labels().first(), "0.000");
    options.numberForm = scientificNumbers;
    EXPECT_EQ(TAxisTicks(TRange(0, 40), 1400, extent, options).exponent(), 1);
    options.step = 1e-9; // a million ticks are no ticks
    EXPECT_LE(TAxisTicks(TRange(0, 40), 1400, extent, options).major().size(), 10);
}
