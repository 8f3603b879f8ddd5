#include "numerics/ImageFilters.h"
#include "numerics/ImageScratch.h"

namespace {

using namespace Utils::Algorithm::Image;

constexpr int cBlockRadius = 3;
constexpr int cBlockSize = 2 * cBlockRadius + 1;
constexpr int cSearchRadius = 10;
constexpr int cCentreStep = 2;
constexpr int cBorder = cBlockRadius + cSearchRadius;

/// The row with cBorder points more on both sides and room for the lane that rounds a block up to 8.
void padRow(const float *row, int n, double *out)
{
    for (int i = -cBorder; i < n + cBorder; ++i) {
        int from = clampedIndex(i, n);
        if (n > cBorder)
            from = i < 0 ? -i : i > n - 1 ? 2 * n - 2 - i : i;
        *out++ = double(row[from]);
    }
    *out = 0.0;
}

double meanSquaredDifference(const double *a, const double *b)
{
    double sum = 0.0;
    for (int i = 0; i < cBlockSize; ++i)
        sum += (a[i] - b[i]) * (a[i] - b[i]);
    return sum / cBlockSize;
}

/// The weighted mean of the blocks that start up to cSearchRadius points before and behind `block`.
void estimateBlock(const double *block, double exponent, double estimate[cBlockSize])
{
    double sums[cBlockSize + 1] = {};
    double total = 0.0;
    for (int shift = -cSearchRadius; shift <= cSearchRadius; ++shift) {
        const double *other = block + shift;
        const double weight = shift == 0 ? 1.0 : std::exp(exponent * meanSquaredDifference(block, other));
        total += weight;
        for (int i = 0; i < cBlockSize + 1; ++i)
            sums[i] += weight * other[i];
    }
    for (int i = 0; i < cBlockSize; ++i)
        estimate[i] = sums[i] / total;
}

void denoiseRow(float *row, int n, double noiseFactor)
{
    const double s = 3.0 * noiseFactor * Utils::Algorithm::rowNoise(row, n);
    const double exponent = -0.5 / (s * s);
    if (!std::isfinite(s) || !std::isfinite(exponent))
        return;
    static thread_local std::vector<double> buffer;
    const std::size_t size = std::size_t(n);
    TScratch<double> scratch(buffer, 3 * size + 2 * cBorder + 1);
    double *sums = scratch.data();
    double *counts = sums + size;
    double *padded = counts + size;
    std::fill_n(sums, 2 * size, 0.0);
    padRow(row, n, padded);
    const auto addBlock = [=](int centre) {
        double estimate[cBlockSize];
        estimateBlock(padded + centre + cBorder - cBlockRadius, exponent, estimate);
        const int first = std::max(0, centre - cBlockRadius);
        const int last = std::min(n - 1, centre + cBlockRadius);
        for (int i = first; i <= last; ++i) {
            sums[i] += estimate[i - centre + cBlockRadius];
            counts[i] += 1.0;
        }
    };
    for (int centre = 0; centre < n; centre += cCentreStep)
        addBlock(centre);
    if ((n - 1) % cCentreStep != 0)
        addBlock(n - 1);
    for (int i = 0; i < n; ++i)
        row[i] = float(sums[i] / counts[i]);
}

} // namespace

void Utils::Algorithm::nonLocalMeansDenoising(float *image, int rows, int cols, double noiseFactor)
{
    if (!image || rows < 1 || cols < 1 || !allFinite(image, std::size_t(rows) * std::size_t(cols)))
        return;
    if (areRowsEqual(image, cols, rows)) {
        denoiseRow(image, cols, noiseFactor);
        repeatFirstRow(image, cols, rows);
        return;
    }
    for (int y = 0; y < rows; ++y)
        denoiseRow(image + std::size_t(y) * std::size_t(cols), cols, noiseFactor);
}
