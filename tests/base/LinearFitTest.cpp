#include "numerics/LinearFit.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr double cNone = std::numeric_limits<double>::quiet_NaN();

} // namespace

// Certified values: NIST Statistical Reference Datasets, linear regression, "Norris" and "NoInt1".
TEST(LinearFit, agreesWithCertifiedValuesOfALine)
{
    const QVector<double> y{0.1, 338.8, 118.1, 888.0, 9.2,   228.1, 668.5, 998.5, 449.1, 778.9, 559.2, 0.3,
                            0.1, 778.1, 668.8, 339.3, 448.9, 10.8,  557.7, 228.3, 998.0, 888.8, 119.6, 0.3,
                            0.6, 557.6, 339.3, 888.0, 998.5, 778.9, 10.2,  117.6, 228.9, 668.4, 449.2, 0.2};
    const QVector<double> x{0.2, 337.4, 118.2, 884.6, 10.1,  226.5, 666.3, 996.3, 448.6, 777.0, 558.2, 0.4,
                            0.6, 775.5, 666.9, 338.0, 447.5, 11.6,  556.0, 228.1, 995.8, 887.6, 120.2, 0.3,
                            0.3, 556.8, 339.1, 887.2, 999.0, 779.0, 11.1,  118.3, 229.2, 669.1, 448.9, 0.5};
    const TLinearFit line = LinearFit::fit(x, y, LinearFit::cLine);
    ASSERT_TRUE(line.isValid);
    EXPECT_EQ(line.count, 36);
    EXPECT_NEAR(line.intercept, -0.262323073774029, 1e-11);
    EXPECT_NEAR(line.slope, 1.00211681802045, 1e-13);
    EXPECT_NEAR(line.r2, 0.999993745883712, 1e-13);
    EXPECT_NEAR(line.standardError, 0.884796396144373, 1e-12);
}

TEST(LinearFit, agreesWithCertifiedValuesOfALineThroughZero)
{
    QVector<double> x, y;
    for (int i = 0; i <= 10; ++i) {
        x.append(60 + i);
        y.append(130 + i);
    }
    const TLinearFit line = LinearFit::fit(x, y, LinearFit::cThroughZero);
    ASSERT_TRUE(line.isValid);
    EXPECT_DOUBLE_EQ(line.intercept, 0.0);
    EXPECT_NEAR(line.slope, 2.07438016528926, 1e-13);
    EXPECT_NEAR(line.r2, 0.999365492298663, 1e-13);
    EXPECT_NEAR(line.standardError, 3.56753034006338, 1e-12);
}

TEST(LinearFit, passesOverWhatIsNoPointAndRefusesWhatGivesNoLine)
{
    const TLinearFit line = LinearFit::fit({1, 2, cNone, 3, 4}, {3, 5, 9, cNone, 9}, LinearFit::cLine);
    ASSERT_TRUE(line.isValid);
    EXPECT_EQ(line.count, 3);
    EXPECT_NEAR(line.slope, 2.0, 1e-12);
    EXPECT_NEAR(line.intercept, 1.0, 1e-12);
    ASSERT_EQ(line.residuals.size(), 5);
    EXPECT_TRUE(std::isnan(line.residuals.at(2)) && std::isnan(line.residuals.at(3)));
    EXPECT_FALSE(LinearFit::fit({2, 2, 2}, {1, 2, 3}, LinearFit::cLine).isValid);
    EXPECT_FALSE(LinearFit::fit({0, 0}, {1, 2}, LinearFit::cThroughZero).isValid);
    EXPECT_FALSE(LinearFit::fit({1}, {1}, LinearFit::cLine).isValid);
    EXPECT_FALSE(LinearFit::fit({1, 2}, {1}, LinearFit::cLine).isValid);
    EXPECT_FALSE(LinearFit::fit({}, {}, LinearFit::cThroughZero).isValid);
    const TLinearFit exact = LinearFit::fit({1, 2}, {5, 5}, LinearFit::cLine);
    EXPECT_EQ(exact.r2, 1.0);
    EXPECT_EQ(exact.standardError, 0.0);
}
