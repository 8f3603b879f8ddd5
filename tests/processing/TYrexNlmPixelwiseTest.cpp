#include "TYrexNlmPixelwise.h"

#include "FilterReference.h"
#include "NlmReference.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <omp.h>
#include <random>

namespace {

using TImage = QVector<float>;

TImage repeated(const TImage &row, int rows)
{
    TImage image;
    for (int y = 0; y < rows; ++y)
        image += row;
    return image;
}

TImage noisy(int count, unsigned seed)
{
    std::mt19937 random(seed);
    std::normal_distribution<double> noise(0.0, 0.05);
    TImage image;
    for (int i = 0; i < count; ++i)
        image.append(float(0.5 + 0.4 * std::sin(0.15 * i) + noise(random)));
    return image;
}

TImage wave()
{
    TImage row;
    for (const double value : FilterReference::cWave)
        row.append(float(value));
    return row;
}

TImage denoise(const TImage &image, int rows, const TYrexNlmParams &params, bool fast)
{
    TImage out(image.size(), -1.0f);
    nlmDenoise(image.constData(), out.data(), rows, image.size() / rows, params, fast);
    return out;
}

int mirror(int i, int n)
{
    return i < 0 ? -i : i >= n ? 2 * n - 2 - i : i;
}

/// The judge: every pixel and every patch by itself, with its own weights and its own exponential table.
TImage plainDenoise(const TImage &image, int rows, const TYrexNlmParams &params, bool fast)
{
    const int cols = image.size() / rows, ds = params.fPatchRadius, search = params.fSearchRadius;
    const auto at = [&](int x, int y) { return image[mirror(y, rows) * cols + mirror(x, cols)]; };
    const auto gauss = [&](int r2) { return std::exp(-r2 / (2.0 * params.fDecay * params.fDecay)); };
    double rowSum = 0.0, patchSum = 0.0;
    for (int dy = -ds; dy <= ds; ++dy) {
        rowSum += gauss(dy * dy);
        for (int dx = -ds; dx <= ds; ++dx)
            patchSum += gauss(dy * dy + dx * dx);
    }
    const double h = double(params.fStrength);
    const auto distance = [&](int x, int y, int u, int v) {
        double sum = 0.0;
        for (int dy = -ds; dy <= ds; ++dy) {
            double inRow = 0.0;
            for (int dx = -ds; dx <= ds; ++dx) {
                const double d = double(at(x + dx, y + dy) - at(u + dx, v + dy));
                if (fast)
                    inRow += gauss(dx * dx) / (h * rowSum) * (d * d);
                else
                    sum += gauss(dy * dy + dx * dx) / (h * h * patchSum) * (d * d);
            }
            if (fast)
                sum += gauss(dy * dy) / (h * rowSum) * inRow;
        }
        return sum;
    };
    const auto weight = [](double d) {
        if (d > 30.0)
            return 0.0;
        const int i = int(1000.0 * d);
        const double f = 1000.0 * d - i;
        const float low = float(std::exp(-i / 1000.0)), high = float(std::exp(-(i + 1) / 1000.0));
        return f < 1e-10 ? double(low) : double(low) + double(high - low) * f;
    };
    TImage out;
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < cols; ++x) {
            double weights = 0.0, values = 0.0;
            for (int v = y - search; v <= y + search; ++v) {
                for (int u = x - search; u <= x + search; ++u) {
                    const double w = weight(distance(x, y, u, v));
                    weights += w;
                    values += w * double(at(u, v));
                }
            }
            out.append(float(values / weights));
        }
    }
    return out;
}

/// Restores the number of threads.
class TThreads
{
public:
    ~TThreads() { omp_set_num_threads(fBefore); }
    void set(int count) { omp_set_num_threads(count); }

private:
    int fBefore = omp_get_max_threads();
};

} // namespace

TEST(NlmPixelwise, givesTheReferenceValues)
{
    struct
    {
        bool fFast;
        double fNoise; // 0: of the image
        QVector<double> fOut;
    } const cases[] = {{false, 0.0, NlmReference::cFull},
                       {true, 0.0, NlmReference::cFast},
                       {false, 0.05, NlmReference::cFull005},
                       {true, 0.05, NlmReference::cFast005}};
    const TImage image = repeated(wave(), 8);
    for (const auto &test : cases) {
        TImage out(image.size(), -1.0f);
        if (test.fNoise > 0.0)
            nlmDenoise(image.constData(), out.data(), 8, 24, nlmParams(test.fNoise), test.fFast);
        else
            nlmPixelwise(image.constData(), out.data(), 8, 24, test.fFast);
        for (int i = 0; i < out.size(); ++i)
            EXPECT_NEAR(out[i], test.fOut[i % 24], 2e-6 * std::abs(test.fOut[i % 24])) << test.fFast << " at " << i;
    }
}

TEST(NlmPixelwise, hasTheBitsOfThePlainLoops)
{
    TYrexNlmParams narrow = nlmParams(0.05);
    TYrexNlmParams wide = narrow;
    wide.fPatchRadius = 4; // 4 + 4 needs 9 rows
    wide.fSearchRadius = 4;
    TYrexNlmParams small = narrow;
    small.fPatchRadius = 1; // no fast method for this one
    for (const bool fast : {false, true}) {
        for (const int cols : {7, 8, 21, 40}) {
            EXPECT_EQ(denoise(repeated(noisy(cols, 4), 8), 8, narrow, fast),
                      plainDenoise(repeated(noisy(cols, 4), 8), 8, narrow, fast))
                << cols;
            EXPECT_EQ(denoise(noisy(8 * cols, 4), 8, narrow, fast), plainDenoise(noisy(8 * cols, 4), 8, narrow, fast))
                << cols;
        }
        EXPECT_EQ(denoise(repeated(noisy(17, 5), 9), 9, wide, fast),
                  plainDenoise(repeated(noisy(17, 5), 9), 9, wide, fast));
        EXPECT_EQ(denoise(repeated(noisy(17, 6), 8), 8, small, fast),
                  plainDenoise(repeated(noisy(17, 6), 8), 8, small, false));
    }
}

TEST(NlmPixelwise, blocksOfColumnsMeetWithoutASeam)
{
    const TImage row = noisy(1100, 8); // two blocks and some
    const TImage whole = denoise(repeated(row, 8), 8, nlmParams(0.05), false);
    for (const int from : {490, 1000}) {
        const TImage part = denoise(repeated(row.mid(from, 60), 8), 8, nlmParams(0.05), false);
        EXPECT_EQ(whole.mid(from + 6, 48), part.mid(6, 48)) << from;
    }
}

TEST(NlmPixelwise, threadsDoNotChangeABit)
{
    TThreads threads;
    const TImage differing = noisy(8 * 50, 2);
    const TImage equal = repeated(noisy(100001, 3), 8); // enough columns to be shared
    threads.set(1);
    const TImage oneDiffering = denoise(differing, 8, nlmParams(0.05), false);
    const TImage oneEqual = denoise(equal, 8, nlmParams(0.05), true);
    for (const int count : {2, 3}) {
        threads.set(count);
        EXPECT_EQ(denoise(differing, 8, nlmParams(0.05), false), oneDiffering) << count;
        EXPECT_EQ(denoise(equal, 8, nlmParams(0.05), true), oneEqual) << count;
    }
}

TEST(NlmPixelwise, parametersFollowTheNoise)
{
    struct
    {
        double fNoise;
        double fDecay;
        int fSearch;
        double fStrength;
        int fPatch;
    } const cases[] = {
        {0.05, 0.7, 3, 0.085, 3}, {1.0, 0.7, 3, 1.7, 3},    {2.999, 0.8, 3, 5.0983, 3}, {3.0, 0.9, 3, 5.1, 3},
        {4.0, 0.9, 3, 6.8, 3},    {5.0, 1.0, 3, 8.5, 3},    {5.1, 1.1, 4, 8.16, 3},     {9.0, 1.3, 4, 12.6, 3},
        {13.0, 1.4, 5, 16.9, 3},  {18.5, 1.7, 5, 24.05, 3}, {20.0, 2.0, 5, 24.0, 3},    {28.0, 2.8, 6, 30.8, 3},
        {67.0, 6.7, 7, 67.0, 3},  {83.0, 8.3, 8, 83.0, 3},  {90.0, 9.0, 8, 90.0, 4},
    };
    for (const auto &test : cases) {
        const TYrexNlmParams params = nlmParams(test.fNoise);
        EXPECT_NEAR(params.fDecay, test.fDecay, 1e-12) << test.fNoise;
        EXPECT_EQ(params.fSearchRadius, test.fSearch) << test.fNoise;
        EXPECT_FLOAT_EQ(params.fStrength, float(test.fStrength)) << test.fNoise;
        EXPECT_EQ(params.fPatchRadius, test.fPatch) << test.fNoise;
    }
}

TEST(NlmPixelwise, imagesWithoutNoiseAndWithNaNComeOutUnchanged)
{
    TImage image(8 * 20, 1.5f);
    TImage out(image.size(), 0.0f);
    nlmPixelwise(image.constData(), out.data(), 8, 20, false);
    EXPECT_EQ(out, image);
    image[33] = std::nanf("");
    nlmPixelwise(image.constData(), out.data(), 8, 20, true);
    EXPECT_TRUE(std::isnan(out[33]));
    EXPECT_EQ(out.count(1.5f), out.size() - 1);
}

TEST(NlmPixelwiseDeathTest, imagesBelowTheBorderEndTheProcess)
{
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        denoise(repeated(noisy(6, 1), 8), 8, nlmParams(0.05), true), ::testing::ExitedWithCode(1),
        "^Image of size \\(6,8\\) too small regarding border size 6\nPlease decrease ds and/or Ds parameter.\n$");
}
