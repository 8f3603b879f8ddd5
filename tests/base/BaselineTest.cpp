#include "numerics/BaselineFit.h"
#include "numerics/MatrixUtils.h"
#include "numerics/PentadiagonalSolver.h"
#include "numerics/TReweightedSmoother.h"

#include "BaselineSamples.h"
#include "BaselineVectors.h"
#include "DenseWhittaker.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

using namespace Utils::Matrix;
using Vector = std::vector<double>;

namespace {

constexpr double cNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double cInfinity = std::numeric_limits<double>::infinity();

Vector whittaker(const Vector &y, const Vector &w, double lambda)
{
    Vector z(y.size(), cNaN);
    whittakerSmooth(int(y.size()), y.data(), w.empty() ? nullptr : w.data(), lambda, z.data());
    return z;
}

Vector iarplsOf(const Vector &y, double lambda, double ratio = 1e-6)
{
    Vector z(y.size(), cNaN);
    EXPECT_TRUE(iarplss(int(y.size()), y.data(), z.data(), lambda, ratio).isOk());
    return z;
}

Vector snipOf(const Vector &y, double factor)
{
    Vector z(y.size(), cNaN);
    EXPECT_TRUE(snipBC(int(y.size()), y.data(), z.data(), factor).isOk());
    return z;
}

void expectNear(const Vector &found, const Vector &expected, double tolerance, const char *what)
{
    ASSERT_EQ(found.size(), expected.size()) << what;
    for (size_t i = 0; i < found.size(); ++i)
        ASSERT_NEAR(found[i], expected[i], tolerance) << what << " at " << i;
}

Vector line(int n, double start, double slope)
{
    Vector y(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i)
        y[size_t(i)] = start + slope * i;
    return y;
}

double median(Vector values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

TEST(PentadiagonalSolver, agreesWithADenseSolutionForEveryLengthAndMiddle)
{
    expectNear(whittaker(BaselineVectors::cShort, BaselineVectors::cShortWeights, 10.0), BaselineVectors::cWhittaker10,
               1e-11, "reference, lambda 10");
    expectNear(whittaker(BaselineVectors::cShort, BaselineVectors::cShortWeights, 1e4),
               BaselineVectors::cWhittaker10000, 1e-11, "reference, lambda 1e4");
    std::mt19937 engine(7);
    std::vector<int> counts;
    for (int n = 3; n <= 21; ++n) // one-sided below 8, then odd and even middles
        counts.push_back(n);
    counts.push_back(150);
    for (const int n : counts) {
        Vector y(static_cast<size_t>(n));
        Vector w(static_cast<size_t>(n));
        for (size_t i = 0; i < y.size(); ++i) {
            y[i] = double(engine()) / 4294967296.0;
            w[i] = i % 3 == 1 ? 0.0 : double(engine()) / 4294967296.0;
        }
        for (const double lambda : {0.01, 30.0, 1e6})
            expectNear(whittaker(y, w, lambda), denseWhittaker(y, w, lambda), 1e-9,
                       qPrintable(QStringLiteral("n %1 lambda %2").arg(n).arg(lambda)));
        expectNear(whittaker(y, {}, 30.0), whittaker(y, Vector(y.size(), 1.0), 30.0), 0.0, "no weights mean 1");
    }
}

TEST(PentadiagonalSolver, bridgesAMillionPointsWithStretchesWithoutWeight)
{
    constexpr int cCount = 1000000;
    Vector w(cCount, 1.0);
    std::fill(w.begin() + cCount / 2, w.begin() + cCount / 2 + cCount / 10, 0.0);
    for (const double lambda : {1e4, 1e8, 1e12}) {
        const Vector straight = line(cCount, 1.0, 1e-6);
        const Vector z = whittaker(straight, w, lambda); // a line passes unchanged, whatever the weights are
        double worst = 0.0;
        for (size_t i = 0; i < z.size(); ++i)
            worst = std::max(worst, std::fabs(z[i] - straight[i]));
        EXPECT_LT(worst, 1e-3) << lambda;
    }
}

TEST(PentadiagonalSolver, takesWhatHasNoSolution)
{
    for (const Vector &y : {Vector{}, Vector{2.0}, Vector{2.0, -1.0}})
        EXPECT_EQ(whittaker(y, Vector(y.size(), 0.0), 100.0), y);
    const Vector y = BaselineVectors::cShort;
    for (const double lambda : {0.0, -1.0, cNaN})
        EXPECT_EQ(whittaker(y, {}, lambda), y);
    EXPECT_EQ(whittaker(y, {}, cInfinity), whittaker(y, {}, TPentadiagonalSolver::cMaxLambda));
    for (const double value : whittaker(y, Vector(y.size(), 0.0), 100.0))
        EXPECT_TRUE(std::isfinite(value));
}

TEST(Iarpls, reproducesReferenceRuns)
{
    const Vector &y = BaselineVectors::cBands;
    expectNear(iarplsOf(y, 100.0), BaselineVectors::cIarpls100, 1e-10, "lambda 100");
    expectNear(iarplsOf(y, 1e4), BaselineVectors::cIarpls10000, 1e-10, "lambda 1e4");
    expectNear(iarplsOf(y, 1e4, 0.5), BaselineVectors::cIarplsOnce, 1e-10, "stopped by the ratio");
    EXPECT_EQ(iarplsOf(y, 1e4), iarplsOf(y, 1e4)); // the kept work space leaves no trace
}

TEST(Iarpls, takesAStraightLineAsItsOwnBaseline)
{
    for (const int n : {3, 4, 7, 8, 9, 1000, 100000}) {
        const Vector y = line(n, -3.0, 0.01);
        expectNear(iarplsOf(y, 1e7), y, 1e-11 * n, "line");
        expectNear(iarplsOf(Vector(size_t(n), 97.3), 1e7), Vector(size_t(n), 97.3), 1e-12, "constant");
    }
    EXPECT_EQ(iarplsOf(Vector(50, 0.0), 1e5), Vector(50, 0.0));
}

TEST(Iarpls, leavesPeaksOutAndExcludedPointsUnheard)
{
    const BaselineSample sample(3, 1500, 6, 12.0, 0.002, 0);
    EXPECT_LT(sample.error(iarplsOf(sample.fY, 1e5)), 0.01);

    Vector y = line(200, 1.0, 0.0);
    std::vector<unsigned char> excluded(y.size(), 0);
    for (size_t i = 0; i < y.size(); ++i) {
        y[i] += i % 2 ? 0.01 : -0.01;
        if (i >= 90 && i < 110) {
            excluded[i] = 1;
            y[i] = -50.0; // below the baseline, where nothing but the mask keeps it out
        }
    }
    Vector z(y.size());
    TReweightedSmoother smoother;
    fitIarPls(smoother, int(y.size()), y.data(), excluded.data(), 1e4, 1e-6, z.data());
    for (const double value : z)
        EXPECT_NEAR(value, 1.0, 0.02);
}

TEST(Snip, reproducesReferenceRunsAndWindows)
{
    expectNear(snipOf(BaselineVectors::cShort, 9.0), BaselineVectors::cSnipShort9, 1e-12, "half-window 2");
    expectNear(snipOf(BaselineVectors::cShort, 12.0), BaselineVectors::cSnipShort12, 1e-12, "half-window 5");
    expectNear(snipOf(BaselineVectors::cBands, 8.0), BaselineVectors::cSnipBands8, 1e-12, "half-window 4");
    expectNear(snipOf(BaselineVectors::cBands, 12.0), BaselineVectors::cSnipBands12, 1e-11, "half-window 19");
    for (const BaselineVectors::TWindow &window : BaselineVectors::cWindows)
        EXPECT_EQ(snipHalfWindow(window.fCount, window.fFactor), window.fHalf)
            << window.fCount << " points, factor " << window.fFactor;
    EXPECT_EQ(snipHalfWindow(1000, cInfinity), 499);
    EXPECT_EQ(snipHalfWindow(1000, -cInfinity), 1);
}

TEST(Snip, keepsConstantsAndCommutesWithScaleAndOffset)
{
    for (const int n : {3, 4, 5, 100, 100003})
        EXPECT_EQ(snipOf(Vector(size_t(n), 0.1), 12.0), Vector(size_t(n), 0.1)) << n;
    const Vector y = BaselineSample(5, 700, 4, 20.0, 0.01, 1).fY;
    Vector changed = y;
    Vector expected = snipOf(y, 7.0);
    for (size_t i = 0; i < y.size(); ++i) {
        changed[i] = 64.0 * y[i] - 512.0; // goes negative
        expected[i] = 64.0 * expected[i] - 512.0;
    }
    expectNear(snipOf(changed, 7.0), expected, 1e-10, "scaled");
}

TEST(Baselines, answerBadInputWithTheDataAndACode)
{
    const Vector good = BaselineVectors::cShort;
    for (const double bad : {cNaN, cInfinity, -cInfinity}) {
        Vector y = good;
        y[3] = bad;
        Vector z(y.size(), 1.0);
        EXPECT_EQ(iarplss(int(y.size()), y.data(), z.data(), 1e4, 1e-6).code, cNotFinite);
        EXPECT_EQ(z[4], y[4]);
        z.assign(y.size(), 1.0);
        EXPECT_EQ(snipBC(int(y.size()), y.data(), z.data(), 5.0).code, cNotFinite);
        EXPECT_EQ(z[4], y[4]);
        EXPECT_FALSE(snipBC(int(y.size()), y.data(), z.data(), 5.0).text.isEmpty());
    }
    Vector z(good.size(), 1.0);
    EXPECT_EQ(iarplss(int(good.size()), good.data(), z.data(), 0.0, 1e-6).code, cBadFactor);
    EXPECT_EQ(z, good);
    EXPECT_EQ(snipBC(int(good.size()), good.data(), z.data(), cNaN).code, cBadFactor);
    for (const int n : {0, 1, 2}) {
        z.assign(good.size(), 1.0);
        EXPECT_EQ(iarplss(n, good.data(), z.data(), 1e4, 1e-6).code, cTooFewPoints);
        EXPECT_EQ(snipBC(n, good.data(), z.data(), 5.0).code, cTooFewPoints);
        EXPECT_TRUE(std::equal(z.begin(), z.begin() + n, good.begin()));
    }
    // an end of the range of numbers is slow or rough, but it ends
    const Vector huge = {1e308, -1e308, 1e308, -1e308, 1e308, 1e308, -1e308, 1e308, 1e308};
    iarplss(int(huge.size()), huge.data(), z.data(), 1e4, 1e-6);
    for (const double ratio : {0.0, -1.0, cNaN})
        iarplss(int(good.size()), good.data(), z.data(), 1e300, ratio);
}

TEST(FactorSearch, findsTheReferenceFactors)
{
    const auto mask = [](const std::vector<std::vector<int>> &runs) {
        std::vector<unsigned char> marked(400, 0);
        for (const std::vector<int> &run : runs)
            std::fill(marked.begin() + run[0], marked.begin() + run[1], static_cast<unsigned char>(1));
        return marked;
    };
    struct
    {
        const Vector &fY;
        std::vector<unsigned char> fMask;
        double fFactor;
        double fClipping;
    } const cases[] = {
        {BaselineVectors::cSearched1, mask(BaselineVectors::cSearchedRuns1), 4.25, 5.8},
        {BaselineVectors::cSearched2, mask(BaselineVectors::cSearchedRuns2), 3.75, 5.2},
    };
    for (const auto &test : cases) {
        double factor = 5.0;
        EXPECT_TRUE(iarplssGA(400, test.fMask.data(), test.fY.data(), factor, 1e-6).isOk());
        EXPECT_NEAR(factor, test.fFactor, 1e-9);
        EXPECT_TRUE(snipBCGA(400, test.fMask.data(), test.fY.data(), factor).isOk());
        EXPECT_NEAR(factor, test.fClipping, 0.1001);
    }
}

TEST(FactorSearch, comesCloseToTheBestFactorOnSimulatedSpectra)
{
    std::vector<double> ratios;
    unsigned seed = 100;
    for (const double narrow : {6.0, 15.0}) {
        for (const double noise : {0.0005, 0.005, 0.02}) {
            for (int kind = 0; kind < 4; ++kind) {
                const BaselineSample sample(++seed, 900, 5, narrow, noise, kind);
                double factor = 5.0;
                ASSERT_TRUE(iarplssGA(900, sample.fMask.data(), sample.fY.data(), factor, 1e-4).isOk());
                ASSERT_GE(factor, 3.0);
                ASSERT_LE(factor, 12.0);
                double best = cInfinity;
                for (double tried = 3.0; tried <= 12.0; tried += 0.5)
                    best = std::min(best, sample.error(iarplsOf(sample.fY, std::pow(10.0, tried), 1e-4)));
                ratios.push_back(sample.error(iarplsOf(sample.fY, std::pow(10.0, factor), 1e-4)) / best);
            }
        }
    }
    EXPECT_LT(median(ratios), 1.5);
}

TEST(FactorSearch, worksOnBlockMeansOfLongSpectra)
{
    const BaselineSample sample(11, 20000, 8, 120.0, 0.005, 0);
    double factor = 5.0;
    ASSERT_TRUE(iarplssGA(20000, sample.fMask.data(), sample.fY.data(), factor, 1e-4).isOk());
    EXPECT_GE(factor, 3.0 + 4.0 * std::log10(3.0));
    EXPECT_LT(sample.error(iarplsOf(sample.fY, std::pow(10.0, factor), 1e-4)), 0.03);
    ASSERT_TRUE(snipBCGA(20000, sample.fMask.data(), sample.fY.data(), factor).isOk());
    EXPECT_LT(sample.error(snipOf(sample.fY, factor)), 0.03);
}

TEST(FactorSearch, keepsTheFactorOfDataThatTellNothing)
{
    Vector y = BaselineVectors::cBands;
    double factor = 5.0;
    const std::vector<unsigned char> all(y.size(), 1); // useless, so it is ignored
    EXPECT_TRUE(iarplssGA(int(y.size()), all.data(), y.data(), factor, 1e-6).isOk());
    double unmasked = 5.0;
    EXPECT_TRUE(iarplssGA(int(y.size()), nullptr, y.data(), unmasked, 1e-6).isOk());
    EXPECT_EQ(factor, unmasked);

    factor = 5.0;
    EXPECT_EQ(iarplssGA(15, nullptr, y.data(), factor, 1e-6).code, cTooFewPoints);
    EXPECT_EQ(snipBCGA(0, nullptr, y.data(), factor).code, cTooFewPoints);
    y[20] = cNaN;
    EXPECT_EQ(iarplssGA(int(y.size()), nullptr, y.data(), factor, 1e-6).code, cNotFinite);
    y.assign(y.size(), 4.0);
    EXPECT_EQ(snipBCGA(int(y.size()), nullptr, y.data(), factor).code, cConstant);
    EXPECT_EQ(factor, 5.0);
}
