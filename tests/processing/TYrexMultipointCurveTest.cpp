#include "TYrexMultipointCurve.h"
#include "SpectrumBuilder.h"
#include "TYrexMultipointSetup.h"
#include "TYrexUnits.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

using TPoints = QVector<TYrexBaselinePoint>;

std::unique_ptr<TYrexSpectrum> withPoints(const TPoints &points, int algorithm, int yUnit = cUnitAbsorbance)
{
    QVector<double> y(101);
    for (int i = 0; i < y.size(); ++i)
        y[i] = 0.5 + 0.001 * i;
    auto spectrum = makeSpectrum(y, 0, 100, cUnitWavenumber, yUnit);
    TYrexMultipointSetup &setup = spectrum->procParams().multipoint();
    setup.points = points;
    setup.algorithm = algorithm;
    setup.active = true;
    setup.lambda = 100;
    return spectrum;
}

} // namespace

TEST(TYrexMultipointCurve, allSegmentCurvesPassThroughTheirInnerKnotsAndAreZeroAtTheEnds)
{
    const TPoints knots{{10, 1, 1}, {30, 4, 1}, {55, -2, 1}, {90, 3, 1}};
    for (const int algorithm : {0, 1, 2}) {
        const QVector<double> curve = TYrexMultipointCurve::curve(knots, 101, algorithm, 0);
        EXPECT_NEAR(curve.at(30), 4.0, 1e-12) << algorithm;
        EXPECT_NEAR(curve.at(55), -2.0, 1e-12) << algorithm;
        for (const int outside : {0, 10, 90, 100})
            EXPECT_EQ(curve.at(outside), 0.0) << algorithm << " at " << outside;
    }
    EXPECT_NEAR(TYrexMultipointCurve::curve(knots, 101, 0, 0).at(20), 2.5, 1e-12);
    EXPECT_NEAR(TYrexMultipointCurve::curve(knots, 101, 1, 0).at(15), 1.0 + 3.0 * (1 - std::sqrt(0.5)) / 2, 1e-12);
}

TEST(TYrexMultipointCurve, aNaturalSplineThroughALineIsTheLineAndKeepsItsEndsStraight)
{
    const TPoints line{{0, 1, 1}, {20, 2, 1}, {70, 4.5, 1}, {100, 6, 1}};
    const QVector<double> curve = TYrexMultipointCurve::curve(line, 101, 2, 0);
    for (int i = 1; i < 100; ++i)
        EXPECT_NEAR(curve.at(i), 1.0 + 0.05 * i, 1e-12);
    // the spline of (0,0) (1,1) (2,0), stretched by 40: y = 1.5 t - 0.5 t^3 on the first half
    const QVector<double> hat = TYrexMultipointCurve::curve({{0, 0, 1}, {40, 1, 1}, {80, 0, 1}}, 101, 2, 0);
    EXPECT_NEAR(hat.at(20), 1.5 * 0.5 - 0.5 * 0.125, 1e-12);
    EXPECT_NEAR(hat.at(60), hat.at(20), 1e-12);
}

TEST(TYrexMultipointCurve, theWhittakerCurveOfALineIsALineAndEndsBeforeTheLastKnot)
{
    const QVector<double> flat = TYrexMultipointCurve::curve({{10, 2, 1}, {90, 2, 1}}, 101, 3, 500);
    EXPECT_EQ(flat.at(9), 0.0);
    EXPECT_NEAR(flat.at(10), 2.0, 1e-4);
    EXPECT_NEAR(flat.at(50), 2.0, 1e-4);
    EXPECT_EQ(flat.at(90), 0.0);
    const QVector<double> stiff = TYrexMultipointCurve::curve({{10, 0, 1}, {90, 2, 1}}, 101, 3, 100000);
    EXPECT_NEAR(stiff.at(50), 1.0, 0.02) << "a stiff curve is the mean";
}

TEST(TYrexMultipointCurve, heightsComeFromTheKindAndAreWrittenBack)
{
    const auto spectrum = withPoints({{0, 9, 1}, {50, 9, 2}, {60.4, 9, 0}, {100, 9, 3}}, 0);
    spectrum->procParams().multipoint().avgWindow = 2;
    TYrexMultipointCurve::computeMultipointBaseline(*spectrum, false);
    const TPoints &points = spectrum->procParams().multipoint().points;
    EXPECT_EQ(points.at(0).y, 9.0);
    EXPECT_NEAR(points.at(1).y, 0.55, 1e-4);
    EXPECT_NEAR(points.at(2).y, 0.56, 1e-12);
    EXPECT_NEAR(points.at(3).y, 0.5965, 1e-4);
    ASSERT_NE(spectrum->preview(), nullptr);
    EXPECT_EQ(spectrum->values().at(50), 0.55) << "only a preview";
}

TEST(TYrexMultipointCurve, correctionHoldsTransmittanceWithinItsScale)
{
    const auto absorbance = withPoints({{0, 0.5, 1}, {100, 0.5, 1}}, 0);
    TYrexMultipointCurve::computeMultipointBaseline(*absorbance, true);
    EXPECT_NEAR(absorbance->values().at(50), 0.05, 1e-12);
    EXPECT_EQ(absorbance->preview(), nullptr);
    const auto transmittance = withPoints({{0, 0.2, 1}, {100, 0.2, 1}}, 0, cUnitTransmittance);
    TYrexMultipointCurve::computeMultipointBaseline(*transmittance, true);
    EXPECT_EQ(transmittance->values().at(50), 1.0);
    const auto percent = withPoints({{0, 0.2, 1}, {100, 0.2, 1}}, 0, cUnitPercentTransmittance);
    TYrexMultipointCurve::computeMultipointBaseline(*percent, true);
    EXPECT_NEAR(percent->values().at(50), 0.55 + 1.0 - 0.2, 1e-12) << "percent is raised by 1 too";
}

TEST(TYrexMultipointCurve, oddSetUpsDoNoHarm)
{
    constexpr double cInfinity = std::numeric_limits<double>::infinity();
    for (const int algorithm : {0, 1, 2, 3, 7}) {
        for (const TPoints &points :
             {TPoints{{50, 1, 1}}, TPoints{{-1e300, 1, 2}, {1e300, 2, 0}},
              TPoints{{std::nan(""), 1, 1}, {cInfinity, 1, 3}}, TPoints{{20, 1, 1}, {20, 5, 1}, {60, 2, 1}}}) {
            const auto spectrum = withPoints(points, algorithm);
            TYrexMultipointCurve::computeMultipointBaseline(*spectrum, true);
        }
    }
    const auto single = withPoints({{50, 1, 1}}, 0);
    TYrexMultipointCurve::computeMultipointBaseline(*single, false);
    EXPECT_EQ(single->preview()[50], 0.0) << "one knot makes no segment";
    const auto none = withPoints({}, 0);
    none->allocPreview(3);
    TYrexMultipointCurve::computeMultipointBaseline(*none, false);
    EXPECT_EQ(none->preview(), nullptr);
}

TEST(TYrexMultipointCurve, borderPointsAreAddedWhereNoneStands)
{
    const auto spectrum = withPoints({{100, 3, 1}, {40, 1, 1}}, 0);
    TYrexMultipointCurve::addBorderPoints(*spectrum);
    const TPoints &points = spectrum->procParams().multipoint().points;
    ASSERT_EQ(points.size(), 3);
    EXPECT_EQ(points.first(), (TYrexBaselinePoint{0.0, 0.0, 2}));
    EXPECT_EQ(points.at(1).x, 100.0);
}

TEST(TYrexMultipointCurve, automaticPointsStandOnFlatGroundApartFromEachOther)
{
    constexpr int cCount = 4000;
    QVector<double> y(cCount);
    for (int i = 0; i < cCount; ++i) {
        y[i] = 0.1 + 0.002 * std::sin(1.7 * i) + 0.001 * std::cos(0.61 * i);
        for (const int centre : {900, 2000, 2600})
            y[i] += std::exp(-0.5 * std::pow((i - centre) / 30.0, 2));
    }
    const auto spectrum = makeSpectrum(y, 4000, 400, cUnitWavenumber, cUnitAbsorbance);
    TYrexMultipointCurve::addAutomaticPoints(*spectrum);
    const TYrexMultipointSetup &setup = spectrum->procParams().multipoint();
    EXPECT_GE(setup.points.size(), 2);
    EXPECT_GE(setup.autoPointCount, setup.points.size());
    for (const TYrexBaselinePoint &point : setup.points) {
        EXPECT_EQ(point.kind, 2);
        EXPECT_LT(y.at(int(point.x)), 0.3) << "on a band at " << point.x;
        for (const TYrexBaselinePoint &other : setup.points)
            EXPECT_TRUE(&other == &point || std::fabs(other.x - point.x) >= 0.01 * cCount);
    }
    for (const int n : {0, 1, 2, 3, 4, 5, 50, 130}) {
        const auto tiny = makeSpectrum(QVector<double>(n, 1.0), 0, 1);
        TYrexMultipointCurve::addAutomaticPoints(*tiny);
    }
}

TEST(TYrexMultipointCurve, theEndOfTheDataIsNoFlatGround)
{
    quint32 state = 1;
    const auto noise = [&state] { return double((state = state * 1664525u + 1013904223u) >> 8) / (1 << 24) - 0.5; };
    for (int round = 0; round < 300; ++round) {
        constexpr int cCount = 1200;
        const double centre = 300.0 + 2.0 * round;
        QVector<double> y(cCount);
        for (int i = 0; i < cCount; ++i)
            y[i] = 0.1 + 0.02 * noise() + std::exp(-0.5 * std::pow((i - centre) / 40.0, 2));
        const auto spectrum = makeSpectrum(y, 4000, 400, cUnitWavenumber, cUnitAbsorbance);
        TYrexMultipointCurve::addAutomaticPoints(*spectrum);
        for (const TYrexBaselinePoint &point : spectrum->procParams().multipoint().points)
            EXPECT_LT(point.x, cCount - 2) << "round " << round;
    }
}
