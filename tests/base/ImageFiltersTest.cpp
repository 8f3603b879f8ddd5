#include "numerics/ImageFilters.h"

#include "FilterReference.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

using namespace Utils::Algorithm;

namespace {

using TImage = QVector<float>;

constexpr float cNaN = std::numeric_limits<float>::quiet_NaN();

TImage toImage(const QVector<double> &row, int rows)
{
    TImage image;
    for (int y = 0; y < rows; ++y)
        std::transform(row.begin(), row.end(), std::back_inserter(image), [](double value) { return float(value); });
    return image;
}

/// Every row of the image against one row.
void expectRows(const TImage &image, const QVector<double> &expected, double tolerance)
{
    ASSERT_EQ(image.size() % expected.size(), 0);
    for (int i = 0; i < image.size(); ++i) {
        const double value = expected[i % expected.size()];
        EXPECT_NEAR(image[i], value, tolerance * std::max(1e-3, std::abs(value))) << "at " << i;
    }
}

TImage noisyImage(int width, int height, unsigned seed)
{
    std::mt19937 random(seed);
    std::normal_distribution<double> noise(0.0, 0.1);
    TImage image;
    for (int i = 0; i < width * height; ++i)
        image.append(float(std::sin(0.2 * (i % width)) + noise(random)));
    return image;
}

/// Equal rows but for one bit in a corner, so that the general way is gone.
TImage nearlyEqualRows(const TImage &row, int rows)
{
    TImage image;
    for (int y = 0; y < rows; ++y)
        image += row;
    image[0] = std::nextafter(image[0], 10.0f);
    return image;
}

TImage repeated(const TImage &row, int rows)
{
    TImage image;
    for (int y = 0; y < rows; ++y)
        image += row;
    return image;
}

TImage wiener(const TImage &in, int width, int window)
{
    TImage out(in.size(), 0.0f);
    mmwfFilter(in.constData(), out.data(), width, in.size() / width, window);
    return out;
}

} // namespace

TEST(RowNoise, findsTheDeviationOfNoiseUnderPeaksAndSlopes)
{
    std::mt19937 random(7);
    std::normal_distribution<double> noise(0.0, 0.02);
    TImage row;
    for (int i = 0; i < 4000; ++i)
        row.append(float(3.0 + 0.01 * i + 50.0 * std::exp(-0.5 * std::pow((i % 500 - 250) / 5.0, 2)) + noise(random)));
    EXPECT_NEAR(rowNoise(row.constData(), row.size()), 0.02, 0.003);
    const TImage line = {0.0f, 0.5f, 1.0f, 1.5f};
    EXPECT_EQ(rowNoise(line.constData(), 4), 0.0);
    const TImage two = {0.0f, 5.0f};
    EXPECT_EQ(rowNoise(two.constData(), 2), 0.0);
    EXPECT_NEAR(std::pow(rowNoise(toImage(FilterReference::cPeaks, 1).constData(), 16), 2),
                FilterReference::cPeaksNoiseVariance, 1e-7);
}

TEST(MedianWiener, givesTheReferenceValues)
{
    const TImage peaks = toImage(FilterReference::cPeaks, 8);
    expectRows(wiener(peaks, 16, 7), FilterReference::cPeaksWiener, 2e-6);
    EXPECT_EQ(wiener(peaks, 16, 6), wiener(peaks, 16, 7));

    TImage out(peaks.size(), 0.0f);
    mmwfFilter(peaks.constData(), out.data(), 16, 8, 7, 1.45110969336);
    expectRows(out, FilterReference::cPeaksWienerGiven, 2e-6);

    const TImage image = toImage(FilterReference::cImage, 1);
    TImage filtered(image.size(), 0.0f);
    mmwfFilter(image.constData(), filtered.data(), 6, 5, 3, 0.25);
    expectRows(filtered, FilterReference::cImageWiener, 2e-6);
}

TEST(MedianWiener, equalRowsGiveWhatTheImageGives)
{
    const TImage row = noisyImage(50, 1, 3);
    for (const int window : {3, 7, 9}) {
        const TImage fast = wiener(repeated(row, 8), 50, window);
        const TImage slow = wiener(nearlyEqualRows(row, 8), 50, window);
        for (int i = 0; i < fast.size(); ++i)
            ASSERT_NEAR(fast[i], slow[i], 1e-6) << "window " << window << " at " << i;
    }
}

TEST(MedianWiener, takesTheMeanVarianceForRowsThatAreTooShortForTheNoise)
{
    // three rows of one pixel: every window has variance 18 and median 0, so the noise is all there is
    EXPECT_EQ(wiener({0.0f, 9.0f, 0.0f}, 1, 3), TImage({0.0f, 0.0f, 0.0f}));
    EXPECT_EQ(wiener({2.5f}, 1, 7), TImage({2.5f}));
}

TEST(BlockwiseNonLocalMeans, givesTheReferenceValues)
{
    const QPair<double, QVector<double>> cases[] = {{0.25, FilterReference::cBlockwiseQuarter},
                                                    {0.5, FilterReference::cBlockwiseHalf},
                                                    {1.0, FilterReference::cBlockwiseOne}};
    for (const auto &test : cases) {
        TImage image = toImage(FilterReference::cWave, 8);
        nonLocalMeansDenoising(image.data(), 8, 24, test.first);
        expectRows(image, test.second, 2e-6);
    }
}

TEST(BlockwiseNonLocalMeans, filtersRowsThatDifferOneByOne)
{
    const int width = 40;
    TImage image = noisyImage(width, 3, 11);
    TImage expected;
    for (int y = 0; y < 3; ++y) {
        TImage row = image.mid(y * width, width);
        nonLocalMeansDenoising(row.data(), 1, width, 0.5);
        expected += row;
    }
    nonLocalMeansDenoising(image.data(), 3, width, 0.5);
    EXPECT_EQ(image, expected);
}

TEST(BlockwiseNonLocalMeans, halvesTheSquaredErrorOfANoisyCurve)
{
    const int n = 2000;
    TImage image = noisyImage(n, 1, 5);
    const TImage noisy = image;
    nonLocalMeansDenoising(image.data(), 1, n, 0.5);
    double before = 0.0, after = 0.0;
    for (int i = 0; i < n; ++i) {
        before += std::pow(noisy[i] - std::sin(0.2 * i), 2);
        after += std::pow(image[i] - std::sin(0.2 * i), 2);
    }
    EXPECT_LT(after, 0.5 * before);
}

TEST(BlockwiseNonLocalMeans, worksOnShortRowsAndKeepsWhatHasNoNoise)
{
    for (int n = 1; n <= 15; ++n) {
        TImage row = noisyImage(n, 1, 2);
        const TImage before = row;
        nonLocalMeansDenoising(row.data(), 1, n, 1.0);
        const auto range = std::minmax_element(before.begin(), before.end());
        for (int i = 0; i < n; ++i)
            EXPECT_TRUE(row[i] >= *range.first && row[i] <= *range.second) << "n " << n << " at " << i;
        EXPECT_EQ(row == before, n < 3) << n;
    }
    TImage line;
    for (int i = 0; i < 20; ++i)
        line.append(0.25f * i);
    const TImage before = line;
    nonLocalMeansDenoising(line.data(), 1, 20, 0.5);
    EXPECT_EQ(line, before);
}

TEST(HybridMedian, givesTheReferenceValuesAndKeepsItsInput)
{
    const TImage image = toImage(FilterReference::cImage, 1);
    const TImage before = image;
    TImage out(image.size(), 0.0f);
    hybridmedianfilter(image.constData(), out.data(), 6, 5);
    expectRows(out, FilterReference::cImageHybrid, 1e-6);
    EXPECT_EQ(image, before);
}

TEST(Moments, giveTheReferenceValues)
{
    const TImage image = toImage(FilterReference::cWave, 8);
    float m[5];
    calc2DMoments(image.constData(), 24, 8, 9, m[0], m[1], m[2], m[3], m[4]);
    for (int i = 0; i < 5; ++i)
        EXPECT_NEAR(m[i], FilterReference::cWaveMoments[i], 1e-5 * std::abs(FilterReference::cWaveMoments[i])) << i;
}

TEST(Moments, equalRowsGiveWhatTheImageGivesAndSlopesAreNoNoise)
{
    const TImage row = noisyImage(101, 1, 9);
    float fast[5], slow[5];
    calc2DMoments(repeated(row, 8).constData(), 101, 8, 9, fast[0], fast[1], fast[2], fast[3], fast[4]);
    calc2DMoments(nearlyEqualRows(row, 8).constData(), 101, 8, 9, slow[0], slow[1], slow[2], slow[3], slow[4]);
    for (int i = 0; i < 5; ++i)
        EXPECT_NEAR(fast[i], slow[i], 1e-5) << i;

    TImage line;
    for (int i = 0; i < 200; ++i)
        line.append(0.5f * i);
    calc2DMoments(line.constData(), 200, 1, 9, fast[0], fast[1], fast[2], fast[3], fast[4]);
    EXPECT_NEAR(fast[1], 0.25 * 60.0 / 9.0, 1e-6);
    EXPECT_NEAR(fast[2], 0.0, 1e-6);
    calc2DMoments(line.constData(), 200, 1, 1, fast[0], fast[1], fast[2], fast[3], fast[4]);
    EXPECT_EQ(fast[2], 0.0f);
    EXPECT_EQ(fast[4], 0.0f);
}

TEST(ImageFilters, leaveImagesThatAreNotFiniteAlone)
{
    for (const float bad : {cNaN, std::numeric_limits<float>::infinity()}) {
        TImage image = noisyImage(30, 2, 1);
        image[17] = bad;
        const TImage before = image;
        const auto same = [](float a, float b) { return a == b || (std::isnan(a) && std::isnan(b)); };
        nonLocalMeansDenoising(image.data(), 2, 30, 0.5);
        EXPECT_TRUE(std::equal(image.begin(), image.end(), before.begin(), same));
        TImage out(image.size(), 0.0f);
        mmwfFilter(image.constData(), out.data(), 30, 2, 7);
        EXPECT_TRUE(std::equal(out.begin(), out.end(), before.begin(), same));
        hybridmedianfilter(image.constData(), out.data(), 30, 2);
        EXPECT_TRUE(std::equal(out.begin(), out.end(), before.begin(), same));
        float m[5] = {1, 1, 1, 1, 1};
        calc2DMoments(image.constData(), 30, 2, 9, m[0], m[1], m[2], m[3], m[4]);
        EXPECT_EQ(m[2], 0.0f);
    }
}
