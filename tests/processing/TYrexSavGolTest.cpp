#include "TYrexSavGol.h"

#include <QVector>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

constexpr double cNaN = std::numeric_limits<double>::quiet_NaN();

QVector<double> coefficients(int np, int nl, int nr, int ld, int m)
{
    QVector<double> c(np, cNaN);
    TYrexSavGol::savgol(c.data(), np, nl, nr, ld, m);
    return c;
}

QVector<double> randomValues(int n)
{
    std::mt19937 random(unsigned(n) + 1);
    std::normal_distribution<double> noise;
    QVector<double> y;
    for (int i = 0; i < n; ++i)
        y.append(noise(random));
    return y;
}

void convolve(QVector<double> &y, const QVector<double> &kernel, bool wrapped)
{
    TYrexSavGol::convolve(y.data(), y.size(), kernel.constData(), kernel.size(), wrapped);
}

/// The judge: one value after the other through a ring buffer.
void ringConvolve(QVector<double> &y, const QVector<double> &kernel)
{
    const int n = y.size(), len = kernel.size(), half = len / 2;
    QVector<double> ring(len, y[0]);
    for (int j = half; j < len; ++j)
        ring[j] = y[std::min(j - half, n - 1)];
    for (int i = 0, head = 0; i < n; ++i, head = (head + 1) % len) {
        double sum = 0.0;
        for (int j = 0; j < len; ++j)
            sum += kernel[j] * ring[(head + j) % len];
        ring[head] = y[std::min(i + len - half, n - 1)];
        y[i] = sum;
    }
}

} // namespace

TEST(SavGol, givesThePublishedCoefficients)
{
    struct
    {
        int fOrder, fDegree;
        QVector<double> fWeights; // from the centre to the right
        double fNorm;
        double fSign; // of the weights to the left
    } const cases[] = {
        {0, 2, {17, 12, -3}, 35, 1}, {0, 2, {7, 6, 3, -2}, 21, 1},      {0, 4, {131, 75, -30, 5}, 231, 1},
        {1, 2, {0, 1, 2}, 10, -1},   {1, 4, {0, 58, 67, -22}, 252, -1}, {2, 2, {-4, -3, 0, 5}, 84, 1},
    };
    for (const auto &test : cases) {
        const int half = test.fWeights.size() - 1;
        const int len = 2 * half + 1;
        const QVector<double> c = coefficients(len, half, half, test.fOrder, test.fDegree);
        for (int k = 0; k <= half; ++k) {
            const double expected = test.fWeights[k] / test.fNorm;
            EXPECT_NEAR(c[(len - k) % len], expected, 1e-13) << "order " << test.fOrder << " right " << k;
            EXPECT_NEAR(c[k], k == 0 ? expected : test.fSign * expected, 1e-13) << "left " << k;
        }
    }
}

TEST(SavGol, oneSidedWindowsReproducePolynomialsAndTheRestIsZero)
{
    const int np = 12;
    const QVector<double> c = coefficients(np, 1, 5, 0, 3);
    for (int power = 0; power <= 3; ++power) {
        double sum = 0.0;
        for (int k = -1; k <= 5; ++k)
            sum += c[(np - k) % np] * std::pow(k, power);
        EXPECT_NEAR(sum, power == 0 ? 1.0 : 0.0, 1e-10) << power;
    }
    for (int place = 2; place <= 6; ++place)
        EXPECT_EQ(c[place], 0.0) << place;
}

TEST(SavGolDeathTest, refusedArgumentsEndTheProcessWithATextOfThreeLines)
{
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(coefficients(3, 1, 1, 0, 4), ::testing::ExitedWithCode(1),
                "^Numerical Recipes run-time error...\nbad args in savgol\n...now exiting to system...\n$");
    for (const auto &args : {QVector<int>{4, 2, 2, 0, 2}, {5, -1, 3, 0, 2}, {5, 3, -1, 0, 2}, {5, 2, 2, 3, 2}})
        EXPECT_FALSE(TYrexSavGol::areUsable(args[0], args[1], args[2], args[3], args[4]));
}

TEST(Convolve, hasTheBitsOfTheRingBuffer)
{
    for (const int len : {1, 3, 9, 21, 75}) {
        const QVector<double> kernel = randomValues(len);
        for (const int n : {1, 2, 4, 5, 8, 9, 37, 38, 100, 2047, 2048, 2049, 2085, 5000}) {
            QVector<double> y = randomValues(n);
            QVector<double> expected = y;
            convolve(y, kernel, false);
            ringConvolve(expected, kernel);
            ASSERT_EQ(y, expected) << "len " << len << " n " << n;
        }
    }
}

TEST(Convolve, keepsPolynomialsInsideAndRepeatsTheEndPoints)
{
    const QVector<double> c = coefficients(9, 4, 4, 0, 4);
    const auto cubic = [](int i) { return 1.0 + 0.3 * i - 0.02 * i * i + 0.0004 * i * i * i; };
    QVector<double> y;
    for (int i = 0; i < 60; ++i)
        y.append(cubic(i));
    convolve(y, c, true);
    for (int i = 4; i < 56; ++i)
        EXPECT_NEAR(y[i], cubic(i), 1e-11) << i;
    double first = 0.0;
    for (int d = -4; d <= 4; ++d)
        first += c[(9 - d) % 9] * cubic(std::max(d, 0));
    EXPECT_NEAR(y[0], first, 1e-13);
    EXPECT_GT(std::abs(first - cubic(0)), 1e-4); // so no polynomial was fitted to the end

    QVector<double> constant(30, 2.5);
    convolve(constant, c, true);
    for (const double value : constant)
        EXPECT_NEAR(value, 2.5, 1e-12);
}

TEST(Convolve, impulseGivesTheKernelBackwardsAndNaNStaysLocal)
{
    const QVector<double> kernel = {1.0, 2.0, 3.0, 4.0, 5.0};
    QVector<double> y(20, 0.0);
    y[10] = 1.0;
    convolve(y, kernel, false);
    EXPECT_EQ(y.mid(8, 5), QVector<double>({5.0, 4.0, 3.0, 2.0, 1.0}));
    EXPECT_EQ(y.count(0.0), 15);

    y.fill(1.0);
    y[10] = cNaN;
    convolve(y, kernel, true);
    for (int i = 0; i < y.size(); ++i)
        EXPECT_EQ(std::isnan(y[i]), i >= 8 && i <= 12) << i;
}

TEST(Convolve, doesNothingWithoutDataOrWithAnEvenKernel)
{
    QVector<double> y = {1.0, 5.0, 2.0};
    const double kernel[] = {1.0, 2.0, 3.0, 4.0};
    TYrexSavGol::convolve(y.data(), 3, kernel, 4, false);
    TYrexSavGol::convolve(y.data(), 0, kernel, 3, false);
    TYrexSavGol::convolve(y.data(), 3, nullptr, 3, false);
    TYrexSavGol::convolve(nullptr, 3, kernel, 3, false);
    EXPECT_EQ(y, QVector<double>({1.0, 5.0, 2.0}));
}
