#include "TYrexNormalization.h"

#include "ChainHelpers.h"

#include <cmath>
#include <limits>

class Normalization : public ChainTest
{
protected:
    /// The values after normalising by that mode, on the full range or on one of x values.
    QVector<double> normalized(const QVector<double> &y, int mode, double value)
    {
        return run(y, mode, value, true, 0.0, 0.0);
    }
    QVector<double> normalized(const QVector<double> &y, int mode, double value, double from, double to)
    {
        return run(y, mode, value, false, from, to);
    }

    TYrexSpectrum fSpectrum;
    double fFirstX = 0.0;
    double fLastX = 0.0;

private:
    QVector<double> run(const QVector<double> &y, int mode, double value, bool full, double from, double to)
    {
        fill(fSpectrum, y, 12);
        if (fFirstX != fLastX)
            fSpectrum.setAxis(fFirstX, fLastX, 1.0, 0.0, 1.0);
        fSpectrum.setParamValue(2002, 1, "Absorbance");
        TYrexNormalization::normalize(fSpectrum, actionMap(39, true,
                                                           {{"normalizationmode", mode},
                                                            {"normalizationvalue", value},
                                                            {"normalizationfullrange", full},
                                                            {"normalizationrangefrom", from},
                                                            {"normalizationrangeto", to}}));
        return fSpectrum.values();
    }
};

TEST_F(Normalization, ofTheLargestPeakDoesNotSeeTheLastPoint)
{
    EXPECT_EQ(normalized({1.0, 3.0, 2.0, 9.0}, 70, 10.0), QVector<double>({0.0, 10.0, 5.0, 40.0}));
    EXPECT_EQ(fSpectrum.yUnits(), 50);
    EXPECT_EQ(fSpectrum.paramText(2002, 1), "Arbitrary");
}

TEST_F(Normalization, ofARangeMovesTheWholeSpectrum)
{
    const QVector<double> y = {10.0, 1.0, 2.0, 3.0, 5.0, -7.0};
    const QVector<double> byRange = {4.5, 0.0, 0.5, 1.0, 2.0, -4.0}; // of points 1 to 3; 4 takes no part
    EXPECT_EQ(normalized(y, 70, 1.0, 0.6, 4.4), byRange);
    EXPECT_EQ(normalized(y, 70, 1.0, 4.4, 0.6), byRange);
    fFirstX = 4000.0;
    fLastX = 3500.0; // falling, as wavenumbers do
    EXPECT_EQ(normalized(y, 70, 1.0, 3610.0, 3905.0), byRange);
}

TEST_F(Normalization, ofSumsScalesTheWholeSpectrum)
{
    EXPECT_EQ(normalized({1.0, -3.0, 4.0, 100.0}, 71, 2.0), QVector<double>({0.25, -0.75, 1.0, 25.0}));
    EXPECT_EQ(normalized({3.0, 4.0, 10.0}, 72, 10.0), QVector<double>({6.0, 8.0, 20.0}));
    EXPECT_EQ(normalized({8.0, 3.0, 4.0, 10.0}, 72, 10.0, 1.0, 3.0), QVector<double>({16.0, 6.0, 8.0, 20.0}));
}

TEST_F(Normalization, guardsAgainstFlatDataButForTheVectorLength)
{
    const QVector<double> zeros(3, 0.0);
    EXPECT_EQ(normalized({2.0, 2.0, 2.0}, 70, 1.0), zeros);
    EXPECT_EQ(normalized(zeros, 71, 1.0), zeros);
    for (const double value : normalized(zeros, 72, 1.0))
        EXPECT_TRUE(std::isnan(value));
    EXPECT_EQ(normalized({5.0}, 70, 1.0), QVector<double>({0.0}));
    EXPECT_EQ(normalized({5.0}, 71, 1.0), QVector<double>({0.0})); // the only point is the last one
    EXPECT_EQ(normalized({}, 72, 1.0), QVector<double>());
}

TEST_F(Normalization, takesBoundsWithoutExtentAsTheFullRange)
{
    const QVector<double> y = {0.0, 1.0, 2.0, 4.0, 9.0};
    const QVector<double> full = {0.0, 0.25, 0.5, 1.0, 2.25};
    EXPECT_EQ(normalized(y, 70, 1.0, 2.0, 2.0), full);
    EXPECT_EQ(normalized(y, 70, 1.0, 1.8, 2.2), full);
    EXPECT_EQ(normalized(y, 70, 1.0, -999999.0, 999999.0), full);
    EXPECT_EQ(normalized(y, 70, 1.0, -1e300, 1e300), full);
    EXPECT_EQ(normalized(y, 70, 1.0, std::numeric_limits<double>::quiet_NaN(), 3.0), full);
    EXPECT_EQ(normalized({7.0}, 71, 1.0, 2.0, 3.0), QVector<double>({0.0})); // an axis without extent
    EXPECT_EQ(normalized(y, 71, 1.0, 7.0, 1e300), QVector<double>(5, 0.0));  // beside the data: no points
    EXPECT_EQ(normalized(y, 71, 1.0, -1e300, -3.0), QVector<double>(5, 0.0));
}

TEST_F(Normalization, ofAnUnknownModeLeavesEverything)
{
    EXPECT_EQ(normalized({1.0, 2.0}, 0, 1.0), QVector<double>({1.0, 2.0}));
    EXPECT_EQ(fSpectrum.yUnits(), 12);
    EXPECT_EQ(fSpectrum.paramText(2002, 1), "Absorbance");
}
