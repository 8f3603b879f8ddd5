#include "TYrexUnitConversion.h"

#include "ChainHelpers.h"

#include <cmath>
#include <limits>

namespace {

constexpr double cNaN = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(UnitConversion, convertsAndClampsByTheTable)
{
    struct
    {
        int fSource;
        int fTarget;
        QVector<double> fIn;
        QVector<double> fOut;
    } const cases[] = {
        // largest absorbance 4: computed values stay above 0.0001, above 0.01 %, below 4
        {11, 52, {50.0, 0.01, 0.001, -3.0, 200.0}, {0.5, 0.0001, 0.0001, 0.0001, 2.0}},
        {12, 52, {0.0, 1.0, 5.0, -1.0}, {1.0, 0.1, 0.0001, 10.0}},
        {10, 53, {0.5, 0.00001, -1.0}, {50.0, 0.01, 0.01}},
        {12, 53, {0.0, 1.0, 5.0}, {100.0, 10.0, 0.01}},
        {10, 54, {1.0, 0.1, 0.00001, 0.0, -0.2, 10.0, cNaN}, {0.0, 1.0, 4.0, 4.0, 4.0, -1.0, 4.0}},
        {11, 54, {100.0, 10.0, 0.0, -5.0}, {0.0, 1.0, 4.0, 4.0}},
        // what is in the target's unit already is not clamped
        {10, 52, {-1.0, 0.0}, {-1.0, 0.0}},
        {11, 53, {-1.0, 0.0}, {-1.0, 0.0}},
        {12, 54, {7.0}, {7.0}},
        // relabelling changes no number
        {10, 55, {-1.0, 0.5}, {-1.0, 0.5}},
        {13, 56, {0.5}, {0.5}},
        {15, 55, {0.5}, {0.5}},
    };
    for (const auto &test : cases) {
        QVector<double> y = test.fIn;
        EXPECT_TRUE(yrexConvertIntensity(y.data(), y.size(), test.fSource, test.fTarget, 4.0));
        for (int i = 0; i < y.size(); ++i)
            EXPECT_NEAR(y[i], test.fOut[i], 1e-15 * std::max(1.0, std::abs(test.fOut[i])))
                << test.fSource << " to " << test.fTarget << " at " << i;
    }
}

TEST(UnitConversion, refusesWithoutAChange)
{
    const QVector<QPair<int, int>> pairs = {{14, 55}, {18, 54}, {50, 56}, {13, 54},
                                            {15, 52}, {13, 53}, {10, 51}, {10, 0}};
    for (const auto &pair : pairs) {
        QVector<double> y = {0.5, -1.0};
        EXPECT_FALSE(yrexConvertIntensity(y.data(), y.size(), pair.first, pair.second, 4.0)) << pair.first;
        EXPECT_EQ(y, QVector<double>({0.5, -1.0}));
    }
}

class UnitConversionStep : public ChainTest
{
};

TEST_F(UnitConversionStep, setsLabelAndUnitOnlyWhenItConverts)
{
    TYrexSpectrum spectrum;
    fill(spectrum, {100.0, 10.0}, 11);
    TYrexUnitConversion::convertUnits(spectrum, {{"yrexuctoyunits", 54}, {"yrexucmaxabs", 4.0}});
    EXPECT_EQ(spectrum.values(), QVector<double>({0.0, 1.0}));
    EXPECT_EQ(spectrum.yUnits(), 12);
    EXPECT_EQ(spectrum.xUnits(), 0);
    EXPECT_EQ(spectrum.paramText(2002, 1), "Absorbance");
    // the formula is that of the original unit, whatever the data are now
    TYrexUnitConversion::convertUnits(spectrum, {{"yrexuctoyunits", 52}, {"yrexucmaxabs", 4.0}});
    EXPECT_EQ(spectrum.values().last(), 0.01);

    fill(spectrum, {0.5}, 13);
    TYrexUnitConversion::convertUnits(spectrum, {{"yrexuctoyunits", 54}, {"yrexucmaxabs", 4.0}});
    EXPECT_EQ(spectrum.yUnits(), 13);
    EXPECT_EQ(spectrum.paramText(2002, 1), "Transmittance"); // as it was
    EXPECT_EQ(spectrum.values(), QVector<double>({0.5}));
}
