#include "TYrexDerivative.h"

#include "ChainHelpers.h"
#include "log/TLogger.h"
#include "numerics/RobustDerivative.h"

#include <cmath>
#include <cstring>

namespace {

QVector<double> centered(QVector<double> y, int order, bool invert)
{
    if (order == 1)
        TYrexDerivative::centeredDerivative1(y.data(), y.size(), invert);
    else
        TYrexDerivative::centeredDerivative2(y.data(), y.size(), invert);
    return y;
}

} // namespace

class Derivative : public ChainTest
{
protected:
    QVector<double> derivative(const QVector<double> &y, QVariantMap action)
    {
        fill(fSpectrum, y, 12);
        TYrexDerivative::derivative(fSpectrum, action);
        EXPECT_EQ(fSpectrum.yUnits(), 50);
        EXPECT_EQ(fSpectrum.paramText(2002, 1), "Arbitrary");
        return fSpectrum.values();
    }
    /// Whether data and unit stay, with a line in the log.
    bool isLeftAlone(const QVector<double> &y, const QVariantMap &action)
    {
        int lines = 0;
        const int level = TLogger::stderrLevel();
        TLogger::setStderrLevel(-1);
        const int sink = TLogger::addSink([&lines](const TLogEntry &entry) {
            if (entry.fText.startsWith("Derivative left out: "))
                ++lines;
        });
        fill(fSpectrum, y, 12);
        TYrexDerivative::derivative(fSpectrum, action);
        TLogger::removeSink(sink);
        TLogger::setStderrLevel(level);
        return std::memcmp(fSpectrum.values().constData(), y.constData(), size_t(y.size()) * sizeof(double)) == 0 &&
               fSpectrum.yUnits() == 12 && lines == 1;
    }
    static QVariantMap savitzkyGolay(int order, int width, int degree, bool invert = false)
    {
        return {{"derivativeapprox", 42},
                {"derivativeorder", order},
                {"derivativesgkerlen", width},
                {"derivativesgpolydeg", degree},
                {"derivativeinvertsign", invert}};
    }

    TYrexSpectrum fSpectrum;
};

TEST_F(Derivative, centeredDifferencesNextToTheEndsTakeNoSign)
{
    const QVector<double> y = {1.0, 4.0, 9.0, 16.0, 25.0, 37.0};
    EXPECT_EQ(centered(y, 1, false), QVector<double>({0.0, 3.0, 6.0, 8.0, 12.0, 0.0}));
    EXPECT_EQ(centered(y, 1, true), QVector<double>({0.0, 3.0, -6.0, -8.0, 12.0, 0.0}));
    EXPECT_EQ(centered(y, 2, false), QVector<double>({0.0, 3.0, 2.0, 2.0, 12.0, 0.0}));
    EXPECT_EQ(centered(y, 2, true), QVector<double>({0.0, 3.0, -2.0, -2.0, 12.0, 0.0}));
}

TEST_F(Derivative, centeredDifferencesOfFewPoints)
{
    for (const int order : {1, 2}) {
        EXPECT_EQ(centered({}, order, false), QVector<double>());
        EXPECT_EQ(centered({5.0}, order, false), QVector<double>({0.0}));
        EXPECT_EQ(centered({5.0, 7.0}, order, false), QVector<double>({2.0, 2.0}));
        EXPECT_EQ(centered({5.0, 7.0, 10.0}, order, false), QVector<double>({0.0, 3.0, 0.0}));
        EXPECT_EQ(centered({5.0, 7.0, 10.0, 14.0}, order, false), QVector<double>({0.0, 2.0, 4.0, 0.0}));
    }
}

TEST_F(Derivative, savitzkyGolayIsExactForPolynomialsInside)
{
    QVector<double> y;
    for (int i = 0; i < 41; ++i)
        y.append(2.0 + 0.5 * i - 0.03 * i * i + 0.001 * i * i * i);
    for (const int width : {10, 11}) { // an even width is raised
        const QVector<double> d1 = derivative(y, savitzkyGolay(1, width, 4));
        const QVector<double> d2 = derivative(y, savitzkyGolay(2, width, 4));
        const QVector<double> d3 = derivative(y, savitzkyGolay(3, width, 4, true));
        for (int i = 5; i < 36; ++i) {
            EXPECT_NEAR(d1[i], 0.5 - 0.06 * i + 0.003 * i * i, 1e-10) << i;
            EXPECT_NEAR(d2[i], -0.06 + 0.006 * i, 1e-10) << i;
            EXPECT_NEAR(d3[i], -0.006, 1e-10) << i;
        }
    }
}

TEST_F(Derivative, savitzkyGolayRepeatsTheEndPoints)
{
    QVector<double> line;
    for (int i = 0; i < 21; ++i)
        line.append(3.0 - 2.0 * i);
    const QVector<double> d2 = derivative(line, savitzkyGolay(2, 7, 3));
    for (int i = 3; i < 18; ++i)
        EXPECT_NEAR(d2[i], 0.0, 1e-12) << i;
    EXPECT_LT(d2[0], -0.1);
    EXPECT_NEAR(d2[20], -d2[0], 1e-12);
}

TEST_F(Derivative, robustNoiseZeroesTheEnds)
{
    QVector<double> y;
    for (int i = 0; i < 30; ++i)
        y.append(std::sin(0.3 * i));
    for (const int order : {1, 2}) {
        QVector<double> expected = y;
        if (order == 1)
            Utils::Algorithm::robustNoiseDerivative(expected.data(), 30, 25, true);
        else
            Utils::Algorithm::robustNoiseSecondDerivative(expected.data(), 30, 25, true);
        expected.first() = expected.last() = 0.0;
        EXPECT_EQ(derivative(y, {{"derivativeapprox", 2},
                                 {"derivativeorder", order},
                                 {"derivativerobustnoiselambda", 25},
                                 {"derivativeinvertsign", true}}),
                  expected)
            << order;
    }
}

TEST_F(Derivative, whatCannotBeComputedKeepsDataAndUnit)
{
    const QVector<double> y = {1.0, 5.0, 2.0, 8.0, 3.0, 9.0};
    EXPECT_TRUE(isLeftAlone(y, {{"derivativeapprox", 77}, {"derivativeorder", 1}}));
    EXPECT_TRUE(isLeftAlone(y, {{"derivativeapprox", 1}, {"derivativeorder", 3}}));
    EXPECT_TRUE(isLeftAlone(y, {{"derivativeapprox", 2}, {"derivativeorder", 3}}));
    EXPECT_TRUE(isLeftAlone(y, {}));
    EXPECT_TRUE(isLeftAlone(y, savitzkyGolay(1, 3, 6))); // seven coefficients from three points
    EXPECT_TRUE(isLeftAlone(y, savitzkyGolay(5, 9, 4)));
    EXPECT_TRUE(isLeftAlone(y, savitzkyGolay(1, -9, 4)));
    EXPECT_TRUE(isLeftAlone(y, savitzkyGolay(1, 2147483647, 4)));
    for (const double odd : {std::nan(""), -double(INFINITY)}) {
        QVector<double> broken = y;
        broken[3] = odd;
        EXPECT_TRUE(isLeftAlone(broken, {{"derivativeapprox", 2}, {"derivativeorder", 1}}));
    }
    EXPECT_EQ(derivative(y, {{"derivativeapprox", 1}, {"derivativeorder", 1}}), centered(y, 1, false));
}
