#include "TYrexNlmPixelwise.h"

#include "numerics/ImageFilters.h"
#include "numerics/ImageScratch.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <omp.h>
#include <vector>

namespace {

using namespace Utils::Algorithm::Image;

constexpr int cNoiseWindow = 9;
constexpr double cLargestDistance = 30.0;
constexpr int cTableSteps = 1000; // entries per unit of distance
constexpr int cTableSize = int(cLargestDistance) * cTableSteps + 1;

/// exp(-i / cTableSteps), and one entry more that is only multiplied by 0.
class TWeightTable
{
public:
    TWeightTable()
        : fValues(cTableSize + 1, 0.0f)
    {
        for (int i = 0; i < cTableSize; ++i)
            fValues[std::size_t(i)] = float(std::exp(-double(i) / cTableSteps));
    }

    double weight(double distance) const
    {
        if (!(distance <= cLargestDistance))
            return 0.0;
        const double place = distance * cTableSteps;
        const int i = int(place);
        const double rest = place - i;
        const float *entry = fValues.data() + i;
        return double(entry[0]) + double(entry[1] - entry[0]) * (rest < 1e-10 ? 0.0 : rest);
    }

private:
    std::vector<float> fValues;
};

const TWeightTable &weightTable()
{
    static const TWeightTable table;
    return table;
}

int mirrored(int i, int n)
{
    return i < 0 ? -i : i > n - 1 ? 2 * n - 2 - i : i;
}

/// What one run shares among its threads, all read only.
struct TNlmRun
{
    TNlmRun(const TYrexNlmParams &params, bool fast);

    int patchSize() const { return 2 * fPatch + 1; }

    int fPatch;
    int fSearch;
    int fBorder;
    bool fFast;
    std::vector<double> fWeights; // of a patch row by row; fast: of a row, and of a column as well
};

TNlmRun::TNlmRun(const TYrexNlmParams &params, bool fast)
    : fPatch(params.fPatchRadius)
    , fSearch(params.fSearchRadius)
    , fBorder(params.border())
    , fFast(fast && params.fPatchRadius >= 2)
{
    const double g = 2.0 * params.fDecay * params.fDecay;
    const double h = double(params.fStrength);
    const int rowRadius = fFast ? 0 : fPatch;
    double sum = 0.0;
    for (int dy = -rowRadius; dy <= rowRadius; ++dy) {
        for (int dx = -fPatch; dx <= fPatch; ++dx) {
            fWeights.push_back(g > 0.0 ? std::exp(-double(dy * dy + dx * dx) / g) : 1.0);
            sum += fWeights.back();
        }
    }
    const double divisor = fFast ? h * sum : h * h * sum;
    for (double &weight : fWeights)
        weight /= divisor;
}

// ---- images in general ----

/// One column of an image: for every pixel the sums over the search window.
class TColumnFilter
{
public:
    TColumnFilter(const TNlmRun &run, const std::vector<float> &padded, int rows, int cols)
        : fRun(run)
        , fPadded(padded)
        , fRows(rows)
        , fStride(std::size_t(cols) + 2 * std::size_t(run.fBorder))
        , fSquares(std::size_t(rows + 2 * run.fPatch) * std::size_t(run.patchSize()))
        , fRowSums(std::size_t(rows + 2 * run.fPatch))
        , fWeightSums(std::size_t(rows))
        , fValueSums(std::size_t(rows))
    {
    }

    /// Writes column x of `out`, whose rows are `outStride` long.
    void run(int x, float *out, std::size_t outStride);

private:
    const float *pixel(int x, int y) const
    {
        return fPadded.data() + std::size_t(y + fRun.fBorder) * fStride + std::size_t(x + fRun.fBorder);
    }
    void computeSquares(int x, int shiftX, int shiftY);
    double distance(int y) const;

    const TNlmRun &fRun;
    const std::vector<float> &fPadded;
    int fRows;
    std::size_t fStride;
    std::vector<double> fSquares; // a patch row for every row from -patch to rows + patch
    std::vector<double> fRowSums; // fast: the weighted sum of each of these rows
    std::vector<double> fWeightSums;
    std::vector<double> fValueSums;
};

void TColumnFilter::computeSquares(int x, int shiftX, int shiftY)
{
    double *square = fSquares.data();
    for (int y = -fRun.fPatch; y < fRows + fRun.fPatch; ++y) {
        const float *here = pixel(x, y);
        const float *there = pixel(x + shiftX, y + shiftY);
        double sum = 0.0;
        for (int dx = -fRun.fPatch; dx <= fRun.fPatch; ++dx) {
            const double difference = double(here[dx] - there[dx]);
            *square = difference * difference;
            if (fRun.fFast)
                sum += fRun.fWeights[std::size_t(dx + fRun.fPatch)] * *square;
            ++square;
        }
        fRowSums[std::size_t(y + fRun.fPatch)] = sum;
    }
}

double TColumnFilter::distance(int y) const
{
    const double *terms = fRun.fFast ? &fRowSums[std::size_t(y)] : &fSquares[std::size_t(y * fRun.patchSize())];
    double sum = 0.0;
    for (std::size_t i = 0; i < fRun.fWeights.size(); ++i)
        sum += fRun.fWeights[i] * terms[i];
    return sum;
}

void TColumnFilter::run(int x, float *out, std::size_t outStride)
{
    const TWeightTable &table = weightTable();
    std::fill(fWeightSums.begin(), fWeightSums.end(), 0.0);
    std::fill(fValueSums.begin(), fValueSums.end(), 0.0);
    for (int shiftY = -fRun.fSearch; shiftY <= fRun.fSearch; ++shiftY) {
        for (int shiftX = -fRun.fSearch; shiftX <= fRun.fSearch; ++shiftX) {
            computeSquares(x, shiftX, shiftY);
            for (int y = 0; y < fRows; ++y) {
                const double weight = table.weight(distance(y));
                fWeightSums[std::size_t(y)] += weight;
                fValueSums[std::size_t(y)] += weight * double(*pixel(x + shiftX, y + shiftY));
            }
        }
    }
    for (int y = 0; y < fRows; ++y)
        out[std::size_t(y) * outStride + std::size_t(x)] =
            float(fValueSums[std::size_t(y)] / fWeightSums[std::size_t(y)]);
}

/// One for each thread. Whatever takes memory is made before the threads start: they cannot say that there is none.
template <typename TFilter>
std::vector<TFilter> filtersOf(int threads, const TFilter &filter)
{
    weightTable();
    return std::vector<TFilter>(std::size_t(threads), filter);
}

void denoiseImage(const float *image, float *out, int rows, int cols, const TNlmRun &run)
{
    const int border = run.fBorder;
    std::vector<float> padded;
    padded.reserve(std::size_t(rows + 2 * border) * std::size_t(cols + 2 * border));
    for (int y = -border; y < rows + border; ++y) {
        const float *row = image + std::size_t(mirrored(y, rows)) * std::size_t(cols);
        for (int x = -border; x < cols + border; ++x)
            padded.push_back(row[mirrored(x, cols)]);
    }
    std::vector<TColumnFilter> filters = filtersOf(omp_get_max_threads(), TColumnFilter(run, padded, rows, cols));
#pragma omp parallel
    {
        TColumnFilter &filter = filters[std::size_t(omp_get_thread_num())];
#pragma omp for schedule(static, 1)
        for (int x = 0; x < cols; ++x)
            filter.run(x, out, std::size_t(cols));
    }
}

// ---- equal rows ----
// The mirrored edge of equal rows has equal rows too, so every output row is the same and a distance depends on the
// shift along x alone. A shift to the left has the squares of the shift to the right from the pixel it leads to. What
// remains of the sums over rows is done term by term, in the order of the general case, for the sake of the last bit.

constexpr int cLanes = 8;                    // columns that go through the sums side by side
constexpr int cLargestSearch = 8;            // radius that the sums' buffers hold
constexpr int cBlock = 512;                  // columns between two fillings of the buffers
constexpr int cColumnsWorthThreads = 100000; // starting the threads costs more below

/// One block of columns of a row.
template <int cPatch>
class TRowFilter
{
public:
    explicit TRowFilter(const TNlmRun &run)
        : fRun(run)
        , fSquares(cBlock + std::size_t(run.fSearch) + 2 * cPatch + cLanes)
        , fStride(cBlock + std::size_t(run.fSearch) + cLanes)
        , fShiftWeights(fStride * std::size_t(run.fSearch))
    {
    }

    /// `row` points at the first column of the block and is readable for the border on both sides, plus some lanes.
    void run(const float *row, int count, float *out);

private:
    static constexpr int cSize = 2 * cPatch + 1;

    void computeWeights(const float *row, int count, int shift, double *weights);
    void distances(const double *squares, double result[cLanes]) const;
    void mean(const float *row, int first, double result[cLanes]) const;
    /// The weights of the shift to the right by `shift`, from column -shift on.
    const double *weightsOf(int shift) const { return fShiftWeights.data() + fStride * std::size_t(shift - 1); }

    const TNlmRun &fRun;
    std::vector<double> fSquares;
    std::size_t fStride;
    std::vector<double> fShiftWeights;
};

template <int cPatch>
void TRowFilter<cPatch>::distances(const double *squares, double result[cLanes]) const
{
    const double *weights = fRun.fWeights.data();
    double sums[cLanes] = {};
    if (fRun.fFast) {
        double rowSums[cLanes] = {};
        for (int dx = 0; dx < cSize; ++dx)
            for (int lane = 0; lane < cLanes; ++lane)
                rowSums[lane] += weights[dx] * squares[dx + lane];
        for (int dy = 0; dy < cSize; ++dy)
            for (int lane = 0; lane < cLanes; ++lane)
                sums[lane] += weights[dy] * rowSums[lane];
    } else {
        for (int dy = 0; dy < cSize; ++dy, weights += cSize)
            for (int dx = 0; dx < cSize; ++dx)
                for (int lane = 0; lane < cLanes; ++lane)
                    sums[lane] += weights[dx] * squares[dx + lane];
    }
    std::copy_n(sums, cLanes, result);
}

template <int cPatch>
void TRowFilter<cPatch>::computeWeights(const float *row, int count, int shift, double *weights)
{
    const TWeightTable &table = weightTable();
    const int columns = count + shift; // from -shift on
    const float *here = row - shift - cPatch;
    for (int i = 0; i < columns + 2 * cPatch; ++i) {
        const double difference = double(here[i] - here[i + shift]);
        fSquares[std::size_t(i)] = difference * difference;
    }
    for (int i = 0; i < columns; i += cLanes) {
        double lanes[cLanes];
        distances(fSquares.data() + i, lanes);
        for (int lane = 0; lane < cLanes; ++lane)
            weights[i + lane] = table.weight(lanes[lane]);
    }
}

template <int cPatch>
void TRowFilter<cPatch>::mean(const float *row, int first, double result[cLanes]) const
{
    double weights[2 * cLargestSearch + 1][cLanes];
    double products[2 * cLargestSearch + 1][cLanes];
    const int shifts = 2 * fRun.fSearch + 1;
    for (int s = 0; s < shifts; ++s) {
        const int shift = s - fRun.fSearch;
        for (int lane = 0; lane < cLanes; ++lane) {
            // the weights of shift k start at column -k; a shift by -k from here is one by k from there to here
            weights[s][lane] = shift == 0  ? 1.0
                               : shift > 0 ? weightsOf(shift)[first + shift + lane]
                                           : weightsOf(-shift)[first + lane];
            products[s][lane] = weights[s][lane] * double(row[first + shift + lane]);
        }
    }
    double weightSums[cLanes] = {};
    double valueSums[cLanes] = {};
    for (int repeat = 0; repeat < shifts; ++repeat) {
        for (int s = 0; s < shifts; ++s) {
            for (int lane = 0; lane < cLanes; ++lane) {
                weightSums[lane] += weights[s][lane];
                valueSums[lane] += products[s][lane];
            }
        }
    }
    for (int lane = 0; lane < cLanes; ++lane)
        result[lane] = valueSums[lane] / weightSums[lane];
}

template <int cPatch>
void TRowFilter<cPatch>::run(const float *row, int count, float *out)
{
    for (int shift = 1; shift <= fRun.fSearch; ++shift)
        computeWeights(row, count, shift, fShiftWeights.data() + fStride * std::size_t(shift - 1));
    for (int i = 0; i < count; i += cLanes) {
        double lanes[cLanes];
        mean(row, i, lanes);
        std::copy_n(lanes, std::min(cLanes, count - i), out + i);
    }
}

template <int cPatch>
void denoiseRow(const float *row, float *out, int cols, const TNlmRun &run)
{
    static thread_local std::vector<float> buffer;
    TScratch<float> scratch(buffer, std::size_t(cols) + 2 * std::size_t(run.fBorder) + cLanes);
    float *padded = scratch.data() + run.fBorder;
    for (int x = -run.fBorder; x < cols + run.fBorder; ++x)
        padded[x] = row[mirrored(x, cols)];
    const bool isWorthThreads = cols >= cColumnsWorthThreads;
    std::vector<TRowFilter<cPatch>> filters =
        filtersOf(isWorthThreads ? omp_get_max_threads() : 1, TRowFilter<cPatch>(run));
#pragma omp parallel if (isWorthThreads)
    {
        TRowFilter<cPatch> &filter = filters[std::size_t(omp_get_thread_num())];
#pragma omp for schedule(static)
        for (int x = 0; x < cols; x += cBlock)
            filter.run(padded + x, std::min(cBlock, cols - x), out + x);
    }
}

/// The value of the first row of a table whose bound is not below the noise.
struct TNoiseStep
{
    double fUpTo;
    double fValue;
};

template <std::size_t cCount>
double lookUp(const TNoiseStep (&steps)[cCount], double noise, double above)
{
    const auto found =
        std::find_if(std::begin(steps), std::end(steps), [=](const TNoiseStep &step) { return noise <= step.fUpTo; });
    return found == std::end(steps) ? above : found->fValue;
}

} // namespace

TYrexNlmParams nlmParams(double noise)
{
    static const TNoiseStep cDecays[] = {
        {1, 0.7}, {std::nextafter(3.0, 0.0), 0.8}, {4, 0.9}, {5, 1.0}, {7, 1.1}, {9, 1.3}, {13, 1.4}, {18, 1.6},
        {19, 1.7}};
    static constexpr TNoiseStep cSearchRadii[] = {{5, 3}, {9, 4}, {20, 5}, {28, 6}, {67, 7}};
    static constexpr TNoiseStep cStrengths[] = {{5, 17}, {7, 16}, {9, 14}, {19, 13}, {20, 12}, {28, 11}};
    TYrexNlmParams params;
    params.fPatchRadius = noise <= 83.0 ? 3 : 4;
    params.fSearchRadius = int(lookUp(cSearchRadii, noise, 8));
    params.fDecay = lookUp(cDecays, noise, noise / 10.0);
    params.fStrength = float(lookUp(cStrengths, noise, 10) * noise / 10.0);
    return params;
}

void nlmDenoise(const float *image, float *out, int rows, int cols, const TYrexNlmParams &params, bool fast)
{
    if (rows <= params.border() || cols <= params.border()) {
        std::fprintf(stderr,
                     "Image of size (%d,%d) too small regarding border size %d\n"
                     "Please decrease ds and/or Ds parameter.\n",
                     cols, rows, params.border());
        std::exit(1);
    }
    const std::size_t size = std::size_t(rows) * std::size_t(cols);
    if (!(params.fStrength > 0.0f) || !std::isfinite(params.fStrength) || !allFinite(image, size)) {
        std::copy_n(image, size, out);
        return;
    }
    const TNlmRun run(params, fast);
    const bool oneRow = run.fSearch <= cLargestSearch && areRowsEqual(image, cols, rows);
    if (oneRow && run.fPatch == 3) {
        denoiseRow<3>(image, out, cols, run);
    } else if (oneRow && run.fPatch == 4) {
        denoiseRow<4>(image, out, cols, run);
    } else {
        denoiseImage(image, out, rows, cols, run);
        return;
    }
    repeatFirstRow(out, cols, rows);
}

void nlmPixelwise(const float *image, float *out, int rows, int cols, bool fast)
{
    float mean, variance, noise, skewness, kurtosis;
    Utils::Algorithm::calc2DMoments(image, cols, rows, cNoiseWindow, mean, variance, noise, skewness, kurtosis);
    nlmDenoise(image, out, rows, cols, nlmParams(double(noise)), fast);
}
