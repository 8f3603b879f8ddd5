#include "TYrexPeakWidth.h"

#include <QVector>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr int cCount = 1001;

/// Bands of Lorentz on a ground that rises along the points.
QVector<double> bands(double ground, double slope, double height,
                      const QVector<QPair<double, double>> &centresAndWidths)
{
    QVector<double> y;
    for (int i = 0; i < cCount; ++i) {
        double value = ground + slope * i;
        for (const auto &band : centresAndWidths)
            value += height / (1.0 + std::pow(2.0 * (i - band.first) / band.second, 2));
        y.append(value);
    }
    return y;
}

double width(const QVector<double> &y, double position, bool isUp = true)
{
    const TYrexPeakWidth::TSpan span = TYrexPeakWidth::measure(y, position, isUp);
    return span.isValid() ? span.fRight - span.fLeft : -1.0;
}

} // namespace

TEST(TYrexPeakWidthTest, isThatOfTheBandWhateverTheGround)
{
    const double alone = width(bands(0.0, 0.0, 1.0, {{500, 20}}), 500);
    EXPECT_NEAR(alone, 20.0, 0.1);
    EXPECT_NEAR(width(bands(35.0, 0.0, 1.0, {{500, 20}}), 500), alone, 1e-6);
    EXPECT_NEAR(width(bands(-7.0, 0.0, 0.01, {{500, 20}}), 500), alone, 1e-6);
    EXPECT_NEAR(width(bands(0.0, 0.0002, 1.0, {{500, 20}}), 500), alone, 3.0);
    EXPECT_NEAR(width(bands(100.0, 0.0, -60.0, {{500, 20}}), 500, false), alone, 1e-6); // transmittance
    EXPECT_NEAR(width(bands(0.0, 0.0, 1.0, {{500, 20}}), 500, false), alone, 1e-6)
        << "picked before it became absorbance";
}

TEST(TYrexPeakWidthTest, aNeighbourCutsTheGroundAndNotTheStrongerBand)
{
    QVector<double> y = bands(0.0, 0.0, 1.0, {{400, 20}});
    const QVector<double> weak = bands(0.0, 0.0, 0.3, {{500, 10}});
    for (int i = 0; i < cCount; ++i)
        y[i] += weak.at(i);
    EXPECT_NEAR(width(y, 400), 20.0, 1.0);
    EXPECT_NEAR(width(y, 500), 10.0, 1.0);
}

TEST(TYrexPeakWidthTest, whatIsNoPeakHasNoWidth)
{
    const QVector<double> y = bands(0.0, 0.0, 1.0, {{500, 20}});
    EXPECT_LT(width(y, 510), 0.0) << "on the flank";
    EXPECT_NEAR(width(y, 501.2), 20.0, 0.1) << "a point beside the summit";
    EXPECT_LT(width(y, -1), 0.0);
    EXPECT_LT(width(y, cCount), 0.0);
    EXPECT_LT(width(y, std::numeric_limits<double>::quiet_NaN()), 0.0);
    EXPECT_LT(width({}, 0), 0.0);
    EXPECT_LT(width({1.0}, 0), 0.0);
    EXPECT_LT(width(QVector<double>(20, 1.0), 7), 0.0) << "level";
    EXPECT_LT(width(QVector<double>(20, std::numeric_limits<double>::quiet_NaN()), 7), 0.0);
}
