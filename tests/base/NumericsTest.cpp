#include "numerics/Median.h"
#include "numerics/RobustDerivative.h"

#include <QVector>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using Utils::Algorithm::calcMedian;
using Utils::Algorithm::robustNoiseDerivative;
using Utils::Algorithm::robustNoiseSecondDerivative;

namespace {

constexpr double cNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double cInfinity = std::numeric_limits<double>::infinity();

// two lines on a slope, with the derivatives that an independent program gave for them
constexpr double cCurve[] = {0.99,     1.021111, 1.05,     1.055556, 1.08,     1.102228, 1.122323, 1.14116,
                             1.164125, 1.230601, 1.324445, 1.450221, 1.537778, 1.503555, 1.41,     1.348378,
                             1.335237, 1.344496, 1.35791,  1.370274, 1.402861, 1.438887, 1.470705, 1.568268,
                             1.741944, 1.987447, 2.225998, 2.335556, 2.275998, 2.066336, 1.849722, 1.726046,
                             1.678483, 1.675554, 1.689528, 1.706935, 1.723365, 1.737781, 1.75,     1.781111};
constexpr double cFirst10[] = {
    0.0202756986085,  0.0200569976899,   0.0197239590849,  0.0203752462571,  0.0228593767611,  0.0274873435261,
    0.0346178018052,  0.0439768224988,   0.0537752963268,  0.0599165317592,  0.0573983576333,  0.0432429496106,
    0.0197136475893,  -0.00458385349378, -0.0203485234604, -0.0242098467831, -0.0185213055883, -0.00695354732429,
    0.00848081111969, 0.0275981575867,   0.0506556988079,  0.0773983757557,  0.105936209522,   0.130031583622,
    0.139322310621,   0.12400499472,     0.081302959058,   0.0202417273036,  -0.0408780227817, -0.0832797861664,
    -0.0975602555409, -0.0873019449789,  -0.063345843,     -0.0363646936259, -0.0132212565783, 0.00341042778361,
    0.0137474947586,  0.0193578868669,   0.0219770971531,  0.022736579975};
constexpr double cSecond10[] = {
    -0.000437401837249, -0.000437401837249, -0.000228675372596, 0.00153124971684, 0.00343701129118, 0.00581892223889,
    0.00844199431931,   0.0102760470679,    0.00932090058809,   0.00296157027669, -0.0079979185284, -0.0203128975169,
    -0.0267457065258,   -0.0218492956403,   -0.00968004429295,  0.00195739764757, 0.00941968474195, 0.0137158317861,
    0.0171528851018,    0.0210818078322,    0.0250332746102,    0.0284520792854,  0.0286235882467,  0.0195671599542,
    -0.000985705956697, -0.0296489258458,   -0.0557551454775,   -0.0663673180313, -0.0558721821393, -0.0289313446302,
    0.00037040588116,   0.0201462152429,    0.027765988715,     0.0261963100332,  0.0200905640619,  0.0131728046619,
    0.007501329288,     0.00371945492869,   0.00151896564373,   0.00151896564373};
constexpr double cFirst1000[] = {
    0.0303844715479,   0.0303923723388,   0.0304243387667,   0.0304961433051,   0.030610356589,    0.0307540531101,
    0.0309070330034,   0.0310395038507,   0.0311102322011,   0.0310678460995,   0.0308745838587,   0.0305417759457,
    0.0301596882432,   0.0298947113583,   0.0299097432096,   0.0302738980044,   0.030948791707,    0.0318283848835,
    0.0327737483083,   0.0336254608709,   0.0342042167127,   0.0343195600139,   0.0337811372382,   0.0323981972893,
    0.0300108984336,   0.0265626202401,   0.0221763208796,   0.0171904229025,   0.0120952270384,   0.00738884359398,
    0.00342267764877,  0.000327607438843, -0.00193905647742, -0.00350595064909, -0.00452501856873, -0.00513917527829,
    -0.00547112030113, -0.00562149548533, -0.00567004855869, -0.0056775882535};

QVector<double> curve()
{
    QVector<double> y;
    for (const double value : cCurve)
        y.append(value);
    return y;
}

QVector<double> first(QVector<double> y, int lambda, bool invert = false)
{
    robustNoiseDerivative(y.data(), y.size(), lambda, invert);
    return y;
}

QVector<double> second(QVector<double> y, int lambda, bool invert = false)
{
    robustNoiseSecondDerivative(y.data(), y.size(), lambda, invert);
    return y;
}

/// The smoothing by elimination of the full matrix 1 + lambda D'D, which knows nothing of bands.
QVector<double> denseSmooth(QVector<double> y, double lambda)
{
    const int n = y.size();
    QVector<QVector<long double>> a(n, QVector<long double>(n, 0.0L));
    for (int i = 0; i < n; ++i)
        a[i][i] = 1.0L;
    const int weights[3] = {1, -2, 1};
    for (int row = 0; row + 2 < n; ++row) {
        for (int p = 0; p < 3; ++p) {
            for (int q = 0; q < 3; ++q)
                a[row + p][row + q] += static_cast<long double>(lambda) * weights[p] * weights[q];
        }
    }
    QVector<long double> right;
    for (const double value : y)
        right.append(value);
    for (int k = 0; k < n; ++k) {
        for (int i = k + 1; i < n; ++i) {
            const long double factor = a[i][k] / a[k][k];
            for (int j = k; j < n; ++j)
                a[i][j] -= factor * a[k][j];
            right[i] -= factor * right[k];
        }
    }
    for (int i = n - 1; i >= 0; --i) {
        for (int j = i + 1; j < n; ++j)
            right[i] -= a[i][j] * right[j];
        right[i] /= a[i][i];
        y[i] = double(right[i]);
    }
    return y;
}

float median(QVector<float> values)
{
    return calcMedian(values.data(), size_t(values.size()));
}

} // namespace

TEST(RobustDerivative, givesThePublishedMethodsNumbers)
{
    const QVector<double> d1 = first(curve(), 10);
    const QVector<double> d2 = second(curve(), 10);
    const QVector<double> smooth = first(curve(), 1000);
    for (int i = 0; i < d1.size(); ++i) {
        EXPECT_NEAR(d1[i], cFirst10[i], 1e-9) << i;
        EXPECT_NEAR(d2[i], cSecond10[i], 1e-9) << i;
        EXPECT_NEAR(smooth[i], cFirst1000[i], 1e-9) << i;
    }
}

TEST(RobustDerivative, agreesWithTheFullMatrixForEveryLength)
{
    for (int n = 3; n <= 12; ++n) {
        const QVector<double> y = curve().mid(40 - n);
        for (const int lambda : {1, 7, 100000}) {
            const QVector<double> z = denseSmooth(y, lambda);
            const QVector<double> d1 = first(y, lambda);
            const QVector<double> d2 = second(y, lambda);
            EXPECT_NEAR(d1[0], z[1] - z[0], 1e-13) << n << " " << lambda;
            EXPECT_NEAR(d1[n - 1], z[n - 1] - z[n - 2], 1e-13) << n << " " << lambda;
            for (int i = 1; i < n - 1; ++i) {
                EXPECT_NEAR(d1[i], (z[i + 1] - z[i - 1]) / 2.0, 1e-13) << n << " " << lambda << " " << i;
                EXPECT_NEAR(d2[i], z[i + 1] - 2.0 * z[i] + z[i - 1], 1e-13) << n << " " << lambda << " " << i;
            }
            EXPECT_EQ(d2[0], d2[1]);
            EXPECT_EQ(d2[n - 1], d2[n - 2]);
        }
    }
}

TEST(RobustDerivative, differentiatesALineExactlyForEveryLambda)
{
    QVector<double> line;
    for (int i = 0; i < 5000; ++i)
        line.append(3.0 - 0.25 * i);
    for (const int lambda : {-5, 0, 1, 1000, std::numeric_limits<int>::max()}) {
        const QVector<double> d1 = first(line, lambda);
        const QVector<double> d2 = second(line, lambda);
        for (int i = 0; i < line.size(); ++i) {
            ASSERT_NEAR(d1[i], -0.25, 1e-9) << lambda << " at " << i;
            ASSERT_NEAR(d2[i], 0.0, 1e-9) << lambda << " at " << i;
        }
    }
}

TEST(RobustDerivative, withoutSmoothingIsThePlainDifference)
{
    EXPECT_EQ(first({1.0, 4.0, 9.0, 16.0}, 0), QVector<double>({3.0, 4.0, 6.0, 7.0}));
    EXPECT_EQ(first({1.0, 4.0, 9.0, 16.0}, 0, true), QVector<double>({-3.0, -4.0, -6.0, -7.0}));
    EXPECT_EQ(second({1.0, 4.0, 9.0, 17.0}, 0), QVector<double>({2.0, 2.0, 3.0, 3.0}));
    EXPECT_EQ(second({1.0, 4.0, 9.0, 17.0}, 0, true), QVector<double>({-2.0, -2.0, -3.0, -3.0}));
}

TEST(RobustDerivative, copesWithFewPointsAndRefusesWhatIsNoNumber)
{
    EXPECT_EQ(first({}, 10), QVector<double>());
    EXPECT_EQ(first({4.0}, 10), QVector<double>({0.0}));
    EXPECT_EQ(first({4.0, 5.5}, 10), QVector<double>({1.5, 1.5}));
    EXPECT_EQ(second({4.0}, 10), QVector<double>({0.0}));
    EXPECT_EQ(second({4.0, 5.5}, 10), QVector<double>({0.0, 0.0}));
    EXPECT_EQ(first({1.0, 2.0, cInfinity, 4.0}, 10), QVector<double>({1.0, 2.0, cInfinity, 4.0}));
    const QVector<double> withNaN = second({1.0, cNaN, 3.0}, 10);
    EXPECT_EQ(withNaN[0], 1.0);
    EXPECT_TRUE(std::isnan(withNaN[1]));
}

TEST(RobustDerivative, ofFloatsIsRoundedOnce)
{
    const QVector<double> y = curve();
    QVector<float> single;
    QVector<double> exact;
    for (const double value : y) {
        single.append(float(value));
        exact.append(double(float(value)));
    }
    robustNoiseDerivative(single.data(), single.size(), 10);
    exact = first(exact, 10);
    for (int i = 0; i < exact.size(); ++i)
        EXPECT_EQ(single[i], float(exact[i])) << i;
}

TEST(Median, takesTheMiddleOrTheMeanOfTheTwoMiddleValues)
{
    EXPECT_EQ(median({3.0f}), 3.0f);
    EXPECT_EQ(median({4.0f, 1.0f}), 2.5f);
    EXPECT_EQ(median({5.0f, 1.0f, 3.0f}), 3.0f);
    EXPECT_EQ(median({4.0f, 1.0f, 3.0f, 2.0f}), 2.5f);
    EXPECT_EQ(median({1.0f, 1.0f, 2.0f, 2.0f, 2.0f, 9.0f}), 2.0f);
    constexpr float cLargest = std::numeric_limits<float>::max();
    EXPECT_EQ(median({cLargest, cLargest}), cLargest); // the sum would not fit
}

TEST(Median, leavesOutNaNsAndItsInput)
{
    const float none = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(median({none, 7.0f, none, 1.0f, 3.0f}), 3.0f);
    EXPECT_TRUE(std::isnan(median({none, none})));
    EXPECT_EQ(calcMedian(nullptr, 0), 0.0f);
    const float infinity = std::numeric_limits<float>::infinity();
    EXPECT_EQ(median({infinity, -infinity, 2.0f}), 2.0f);
    const QVector<float> values = {3.0f, 1.0f, 2.0f};
    calcMedian(values.constData(), 3);
    EXPECT_EQ(values, QVector<float>({3.0f, 1.0f, 2.0f}));
}
