#include "TYrexSmoothing.h"

#include "ChainHelpers.h"
#include "TYrexNlmPixelwise.h"
#include "log/TLogger.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace {

constexpr double cNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double cInfinity = std::numeric_limits<double>::infinity();

QVector<double> noisyPeaks(int n)
{
    std::mt19937 random(21);
    std::normal_distribution<double> noise(0.0, 20.0);
    QVector<double> y;
    for (int i = 0; i < n; ++i)
        y.append(300.0 + 1000.0 * std::exp(-0.5 * std::pow((i % 80 - 40) / 8.0, 2)) + noise(random));
    return y;
}

double squaredError(const QVector<double> &y)
{
    double sum = 0.0;
    for (int i = 0; i < y.size(); ++i)
        sum += std::pow(y[i] - 300.0 - 1000.0 * std::exp(-0.5 * std::pow((i % 80 - 40) / 8.0, 2)), 2);
    return sum;
}

bool hasSameBits(const QVector<double> &a, const QVector<double> &b)
{
    return a.size() == b.size() &&
           std::memcmp(a.constData(), b.constData(), std::size_t(a.size()) * sizeof(double)) == 0;
}

} // namespace

TEST(ExponentialSmoothing, followsTheFormulaAndItsBounds)
{
    for (const int n : {1, 2, 3, 4, 9}) {
        for (const double lambda : {0.5, 5.0}) {
            QVector<double> y;
            for (int i = 0; i < n; ++i)
                y.append(std::cos(2.0 * i) + i);
            QVector<double> expected = y;
            const double square = lambda * lambda;
            const double q = (1.0 + square - std::sqrt(1.0 + 2.0 * square)) / square;
            double p = expected[0];
            for (int i = 0; i <= n - 3; ++i)
                expected[i] = p = (1.0 - q) * expected[i] + q * p;
            expected[n - 1] = p * q / (1.0 + q) + expected[n - 1] / (1.0 + q);
            p = expected[n - 1];
            for (int i = n - 1; i >= 1; --i)
                expected[i] = p = (1.0 - q) * expected[i] + q * p;
            TYrexSmoothing::exponentialSmooth(y.data(), lambda, n);
            for (int i = 0; i < n; ++i)
                EXPECT_NEAR(y[i], expected[i], 1e-13) << "n " << n << " lambda " << lambda << " at " << i;
        }
    }
}

TEST(ExponentialSmoothing, isDefinedForEveryStrength)
{
    const QVector<double> before = noisyPeaks(50);
    for (const double lambda : {0.0, 1e-12, cNaN}) {
        QVector<double> y = before;
        TYrexSmoothing::exponentialSmooth(y.data(), lambda, y.size());
        for (int i = 0; i < y.size(); ++i)
            EXPECT_NEAR(y[i], before[i], 1e-9) << lambda;
    }
    for (const double lambda : {1e200, cInfinity}) {
        QVector<double> y(20, 3.5);
        TYrexSmoothing::exponentialSmooth(y.data(), lambda, y.size());
        for (const double value : y)
            EXPECT_NEAR(value, 3.5, 1e-14) << lambda;
    }
}

TEST(SavitzkyGolaySmoothing, raisesEvenWindowsAndRefusesWhatHasNoFilter)
{
    QVector<double> even = noisyPeaks(100), odd = even;
    const QVector<double> before = even;
    EXPECT_TRUE(TYrexSmoothing::savitzkyGolay(even.data(), 100, 8, 4));
    EXPECT_TRUE(TYrexSmoothing::savitzkyGolay(odd.data(), 100, 9, 4));
    EXPECT_EQ(even, odd);
    EXPECT_LT(squaredError(odd), 0.6 * squaredError(before));

    QVector<double> y = before;
    const QPair<int, int> refused[] = {{3, 4}, {-5, 0}, {9, -1}, {2000000001, 4}, {1001, 127}, {100001, 100000}};
    for (const auto &test : refused)
        EXPECT_FALSE(TYrexSmoothing::savitzkyGolay(y.data(), 100, test.first, test.second)) << test.first;
    EXPECT_EQ(y, before);
}

TEST(ImageSmoothing, everyMethodLowersTheErrorAndKeepsTheScale)
{
    const QVector<double> before = noisyPeaks(800);
    struct
    {
        int fMode; // 0: Wiener
        double fGain;
    } const cases[] = {{0, 0.75}, {12, 0.5}, {13, 0.75}, {14, 0.75}};
    for (const auto &test : cases) {
        QVector<double> y = before;
        if (test.fMode == 0)
            TYrexSmoothing::medianWiener(y.data(), y.size());
        else
            EXPECT_TRUE(TYrexSmoothing::nonLocalMeans(y.data(), y.size(), 0.5, test.fMode));
        EXPECT_LT(squaredError(y), test.fGain * squaredError(before)) << test.fMode;
        for (const double value : y)
            EXPECT_EQ(value, double(float(value))); // the image is one of floats
    }
}

TEST(ImageSmoothing, scalesTheImageToASpanOfOne)
{
    QVector<double> y = noisyPeaks(60);
    const QVector<double> before = y;
    const float span = float(*std::max_element(y.begin(), y.end()) - *std::min_element(y.begin(), y.end()));
    QVector<float> image, out(8 * 60);
    for (int i = 0; i < 8 * 60; ++i)
        image.append(float(before[i % 60]) / span);
    nlmPixelwise(image.constData(), out.data(), 8, 60, false);
    TYrexSmoothing::nonLocalMeans(y.data(), 60, 0.5, 13);
    for (int i = 0; i < 60; ++i)
        EXPECT_EQ(y[i], double(out[4 * 60 + i] * span));
}

TEST(ImageSmoothing, leavesToTheBitWhatItCannotSmooth)
{
    const double odd = 0.1; // no float
    const QVector<QVector<double>> data = {
        QVector<double>(30, odd), // no span
        {odd, 2.0, cNaN, 4.0, 5.0, 6.0, 7.0, 8.0},
        {cInfinity, odd, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0},
        {odd, 1e300, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0}, // no float
    };
    for (const QVector<double> &before : data) {
        for (const int mode : {12, 13, 14}) {
            QVector<double> y = before;
            EXPECT_EQ(TYrexSmoothing::nonLocalMeans(y.data(), y.size(), 0.5, mode), before == data.first());
            EXPECT_TRUE(hasSameBits(y, before)) << mode;
        }
        if (before != data.first()) {
            QVector<double> y = before;
            EXPECT_FALSE(TYrexSmoothing::medianWiener(y.data(), y.size()));
            EXPECT_TRUE(hasSameBits(y, before));
        }
    }
    QVector<double> y = noisyPeaks(30);
    const QVector<double> before = y;
    EXPECT_TRUE(TYrexSmoothing::nonLocalMeans(y.data(), 30, 0.0, 13));
    EXPECT_EQ(y, before);
}

class SmoothingStep : public ChainTest
{
protected:
    void SetUp() override
    {
        ChainTest::SetUp();
        fStderrLevel = TLogger::stderrLevel();
        TLogger::setStderrLevel(-1);
        fSink = TLogger::addSink([this](const TLogEntry &entry) { fLog.append(entry.fText); });
    }
    void TearDown() override
    {
        TLogger::removeSink(fSink);
        TLogger::setStderrLevel(fStderrLevel);
    }
    /// The data after a chain of this one action.
    QVector<double> run(const QVector<double> &values, QVariantMap action)
    {
        TYrexSpectrum spectrum;
        fill(spectrum, values, 12);
        TYrexProcParams params;
        params.setActions({actionMap(3, true, action)});
        spectrum.procParams() = params;
        spectrum.process(0, 0, 0);
        EXPECT_EQ(spectrum.yUnits(), 12);
        EXPECT_EQ(spectrum.orgData(), values);
        return spectrum.values();
    }

    QStringList fLog;
    int fSink = 0;
    int fStderrLevel = 0;
};

TEST_F(SmoothingStep, takesEachMethodsOwnKeys)
{
    const QVector<double> before = noisyPeaks(64);
    QVector<double> expected = before;
    TYrexSmoothing::exponentialSmooth(expected.data(), 3.0, 64);
    EXPECT_EQ(run(before, {{"smoothmethod", 4}, {"smoothparam", 3.0}}), expected);
    expected = before;
    TYrexSmoothing::savitzkyGolay(expected.data(), 64, 11, 2);
    EXPECT_EQ(run(before, {{"smoothmethod", 45}, {"sgsmoothingkerlen", 11}, {"sgsmoothinggpolydeg", 2}}), expected);
    expected = before;
    TYrexSmoothing::medianWiener(expected.data(), 64);
    EXPECT_EQ(run(before, {{"smoothmethod", 15}}), expected);
    for (const int mode : {12, 13, 14}) {
        expected = before;
        TYrexSmoothing::nonLocalMeans(expected.data(), 64, 0.7, mode);
        EXPECT_EQ(run(before, {{"smoothmethod", 9}, {"nlmnoisefactor", 0.7}, {"nlmmode", mode}}), expected);
    }
    EXPECT_EQ(run(before, {{"smoothmethod", 5}, {"smoothparam", 3.0}}), before);
    EXPECT_TRUE(fLog.isEmpty());
}

TEST_F(SmoothingStep, leavesAndLogsWhatWouldEndTheProcess)
{
    const QVector<double> six = {1.0, 3.0, 2.0, 5.0, 4.0, 1.0};
    for (const int mode : {13, 14})
        EXPECT_EQ(run(six, {{"smoothmethod", 9}, {"nlmnoisefactor", 0.5}, {"nlmmode", mode}}), six);
    EXPECT_EQ(run(six, {{"smoothmethod", 45}, {"sgsmoothingkerlen", 3}, {"sgsmoothinggpolydeg", 4}}), six);
    EXPECT_EQ(fLog, QStringList({"Smoothing left out: pixelwise non-local means need 7 points, the spectrum has 6",
                                 "Smoothing left out: pixelwise non-local means need 7 points, the spectrum has 6",
                                 "Smoothing left out: no Savitzky-Golay filter of 3 points and degree 4"}));
    EXPECT_NE(run(six + QVector<double>{2.0}, {{"smoothmethod", 9}, {"nlmnoisefactor", 0.5}, {"nlmmode", 13}}),
              six + QVector<double>{2.0});
}
