#include "numerics/ImageFilters.h"

#include "numerics/ImageScratch.h"

namespace {

using namespace Utils::Algorithm::Image;

/// Orders two values of a sorting network; without a branch, so that loops over neighbouring pixels vectorise.
inline void order(float &a, float &b)
{
    const float low = a < b ? a : b;
    b = a < b ? b : a;
    a = low;
}

/// The networks are N. Devillard's (Fast median search, 1998): only the middle value comes out in its place.
inline float medianOf7(float p[7])
{
    order(p[0], p[5]), order(p[0], p[3]), order(p[1], p[6]), order(p[2], p[4]), order(p[0], p[1]);
    order(p[3], p[5]), order(p[2], p[6]), order(p[2], p[3]), order(p[3], p[6]), order(p[4], p[5]);
    order(p[1], p[4]), order(p[1], p[3]), order(p[3], p[4]);
    return p[3];
}

inline float medianOf9(float p[9])
{
    order(p[1], p[2]), order(p[4], p[5]), order(p[7], p[8]), order(p[0], p[1]), order(p[3], p[4]);
    order(p[6], p[7]), order(p[1], p[2]), order(p[4], p[5]), order(p[7], p[8]), order(p[0], p[3]);
    order(p[5], p[8]), order(p[4], p[7]), order(p[3], p[6]), order(p[1], p[4]), order(p[2], p[5]);
    order(p[4], p[7]), order(p[4], p[2]), order(p[6], p[4]), order(p[4], p[2]);
    return p[4];
}

inline float medianOf3(float a, float b, float c)
{
    order(a, b), order(b, c), order(a, b);
    return b;
}

/// |second difference| / sqrt(6) of the inner points; the answer is their number.
std::size_t residuals(const float *row, int n, double *out)
{
    for (int i = 1; i + 1 < n; ++i)
        out[i - 1] = std::abs(2.0 * row[i] - row[i - 1] - row[i + 1]) / std::sqrt(6.0);
    return n < 3 ? 0 : std::size_t(n - 2);
}

/// The noise of all rows together.
double imageNoise(const float *image, int width, int height)
{
    static thread_local std::vector<double> buffer;
    TScratch<double> scratch(buffer, std::size_t(width) * std::size_t(height));
    std::size_t count = 0;
    for (int y = 0; y < height; ++y)
        count += residuals(image + std::size_t(y) * std::size_t(width), width, scratch.data() + count);
    return 1.4826 * medianInPlace(scratch.data(), count);
}

/// Median and variance of the windows along one row of an image.
struct TWindowStats
{
    float *fMedian;
    double *fVariance;
};

/// A row with `radius` copies of its ends on both sides.
void padClamped(const float *row, int n, int radius, float *out)
{
    std::fill_n(out, radius, row[0]);
    std::copy_n(row, n, out + radius);
    std::fill_n(out + radius + n, radius, row[n - 1]);
}

double varianceOf(const float *values, int count)
{
    double sum = 0.0;
    for (int i = 0; i < count; ++i)
        sum += double(values[i]);
    const double mean = sum / count;
    double squares = 0.0;
    for (int i = 0; i < count; ++i)
        squares += (values[i] - mean) * (values[i] - mean);
    return squares / count;
}

/// The windows of an image whose rows are all like this one: each of its values counts `window` times, which leaves
/// median and variance as they are.
void rowStats(const float *row, int width, int window, const TWindowStats &stats)
{
    static thread_local std::vector<float> buffer;
    TScratch<float> scratch(buffer, std::size_t(width) + 2 * std::size_t(window));
    float *padded = scratch.data();
    padClamped(row, width, window / 2, padded);
    if (window == 7) {
        for (int x = 0; x < width; ++x) {
            float p[7] = {padded[x],     padded[x + 1], padded[x + 2], padded[x + 3],
                          padded[x + 4], padded[x + 5], padded[x + 6]};
            stats.fMedian[x] = medianOf7(p);
        }
    } else {
        std::vector<float> values(std::size_t(window), 0.0f);
        for (int x = 0; x < width; ++x) {
            values.assign(padded + x, padded + x + window);
            std::nth_element(values.begin(), values.begin() + window / 2, values.end());
            stats.fMedian[x] = values[std::size_t(window / 2)];
        }
    }
    for (int x = 0; x < width; ++x)
        stats.fVariance[x] = varianceOf(padded + x, window);
}

/// Gathers the `height` x `window` values around (x, y), row by row.
void gather(const float *image, int width, int height, int x, int y, int window, int windowRows, float *out)
{
    const int radius = window / 2;
    for (int dy = -(windowRows / 2); dy <= windowRows / 2; ++dy) {
        const float *row = image + std::size_t(clampedIndex(y + dy, height)) * std::size_t(width);
        for (int dx = -radius; dx <= radius; ++dx)
            *out++ = row[clampedIndex(x + dx, width)];
    }
}

void imageStats(const float *image, int width, int height, int window, const TWindowStats &stats)
{
    const int count = window * window;
    std::vector<float> values(std::size_t(count), 0.0f);
    std::size_t pixel = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x, ++pixel) {
            gather(image, width, height, x, y, window, window, values.data());
            stats.fVariance[pixel] = varianceOf(values.data(), count);
            std::nth_element(values.begin(), values.begin() + count / 2, values.end());
            stats.fMedian[pixel] = values[std::size_t(count / 2)];
        }
    }
}

double meanOf(const double *values, std::size_t count)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < count; ++i)
        sum += values[i];
    return sum / double(count);
}

/// The Wiener filter; a negative noise variance is estimated.
void medianWiener(const float *in, float *out, int width, int height, int window, double noiseVariance)
{
    if (!in || !out || width < 1 || height < 1)
        return;
    if (!allFinite(in, std::size_t(width) * std::size_t(height))) {
        std::copy_n(in, std::size_t(width) * std::size_t(height), out);
        return;
    }
    const int oddWindow = std::max(1, window) | 1;
    const bool equal = areRowsEqual(in, width, height);
    const int rows = equal ? 1 : height;
    const std::size_t count = std::size_t(width) * std::size_t(rows);
    static thread_local std::vector<double> varianceBuffer;
    TScratch<double> variances(varianceBuffer, count);
    const TWindowStats stats = {out, variances.data()}; // the medians wait where the result will stand
    if (equal)
        rowStats(in, width, oddWindow, stats);
    else
        imageStats(in, width, height, oddWindow, stats);
    double noise = noiseVariance;
    if (noise < 0.0) {
        const double sigma = width < 3 ? 0.0 : imageNoise(in, width, rows);
        noise = width < 3 ? meanOf(variances.data(), count) : sigma * sigma;
    }
    for (std::size_t i = 0; i < count; ++i) {
        const double variance = stats.fVariance[i];
        const double gain = variance > noise ? (variance - noise) / variance : 0.0;
        out[i] = float(out[i] + gain * (double(in[i]) - out[i]));
    }
    if (equal)
        repeatFirstRow(out, width, height);
}

/// The quantities of calc2DMoments, one value per window.
struct TMomentArrays
{
    double *fMean;
    double *fVariance;
    double *fLevel; // variance without the slope
    double *fSkewness;
    double *fKurtosis;
};

/// `values` holds `rows` rows of `window`; how often a row repeats in the image's window plays no part.
void windowMoments(const float *values, int window, int rows, const TMomentArrays &out, std::size_t place)
{
    const int count = window * rows;
    const int radius = window / 2;
    double sum = 0.0, slopeSum = 0.0, kk = 0.0;
    for (int i = 0; i < count; ++i)
        sum += double(values[i]);
    const double mean = sum / count;
    double m2 = 0.0, m3 = 0.0, m4 = 0.0;
    for (int row = 0; row < rows; ++row) {
        for (int k = -radius; k <= radius; ++k) {
            const double d = double(*values++) - mean;
            const double square = d * d;
            slopeSum += k * d;
            m2 += square;
            m3 += square * d;
            m4 += square * square;
        }
    }
    for (int k = 1; k <= radius; ++k)
        kk += 2.0 * k * k;
    const double variance = m2 / count;
    const double slope = kk > 0.0 ? slopeSum / (rows * kk) : 0.0;
    out.fMean[place] = mean;
    out.fVariance[place] = variance;
    out.fLevel[place] =
        window < 3 ? variance : std::max(0.0, variance - slope * slope * kk / window) * window / (window - 2);
    out.fSkewness[place] = variance > 0.0 ? m3 / count / (variance * std::sqrt(variance)) : 0.0;
    out.fKurtosis[place] = variance > 0.0 ? m4 / count / (variance * variance) - 3.0 : 0.0;
}

} // namespace

double Utils::Algorithm::rowNoise(const float *row, int n)
{
    if (!row || n < 3 || !allFinite(row, std::size_t(n)))
        return 0.0;
    return imageNoise(row, n, 1);
}

void Utils::Algorithm::mmwfFilter(const float *in, float *out, int width, int height, int window)
{
    medianWiener(in, out, width, height, window, -1.0);
}

void Utils::Algorithm::mmwfFilter(const float *in, float *out, int width, int height, int window, double noiseVariance)
{
    medianWiener(in, out, width, height, window, std::max(0.0, noiseVariance));
}

void Utils::Algorithm::hybridmedianfilter(const float *in, float *out, int width, int height)
{
    if (!in || !out || width < 1 || height < 1)
        return;
    if (!allFinite(in, std::size_t(width) * std::size_t(height))) {
        std::copy_n(in, std::size_t(width) * std::size_t(height), out);
        return;
    }
    const auto pixel = [=](int x, int y) {
        return in[std::size_t(clampedIndex(y, height)) * std::size_t(width) + std::size_t(clampedIndex(x, width))];
    };
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const float centre = pixel(x, y);
            float upright[9] = {centre,          pixel(x - 2, y), pixel(x - 1, y), pixel(x + 1, y), pixel(x + 2, y),
                                pixel(x, y - 2), pixel(x, y - 1), pixel(x, y + 1), pixel(x, y + 2)};
            float diagonal[9] = {centre};
            int next = 1;
            for (const int d : {-2, -1, 1, 2}) {
                diagonal[next++] = pixel(x + d, y + d);
                diagonal[next++] = pixel(x + d, y - d);
            }
            *out++ = medianOf3(medianOf9(upright), medianOf9(diagonal), centre);
        }
    }
}

void Utils::Algorithm::calc2DMoments(const float *image, int width, int height, int window, float &m1, float &m2,
                                     float &m3, float &m4, float &m5)
{
    m1 = m2 = m3 = m4 = m5 = 0.0f;
    if (!image || width < 1 || height < 1 || !allFinite(image, std::size_t(width) * std::size_t(height)))
        return;
    const int oddWindow = std::max(1, window) | 1;
    const bool equal = areRowsEqual(image, width, height);
    const int rows = equal ? 1 : height;
    const int windowRows = equal ? 1 : oddWindow;
    const std::size_t count = std::size_t(width) * std::size_t(rows);
    static thread_local std::vector<double> buffer;
    static thread_local std::vector<float> windowBuffer;
    TScratch<double> scratch(buffer, 5 * count);
    TScratch<float> values(windowBuffer, std::size_t(oddWindow) * std::size_t(windowRows));
    double *space = scratch.data();
    const TMomentArrays arrays = {space, space + count, space + 2 * count, space + 3 * count, space + 4 * count};
    std::size_t place = 0;
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < width; ++x, ++place) {
            gather(image, width, rows, x, y, oddWindow, windowRows, values.data());
            windowMoments(values.data(), oddWindow, windowRows, arrays, place);
        }
    }
    m1 = float(medianInPlace(arrays.fMean, count));
    m2 = float(medianInPlace(arrays.fVariance, count));
    m3 = float(std::sqrt(medianInPlace(arrays.fLevel, count)));
    m4 = float(medianInPlace(arrays.fSkewness, count));
    m5 = float(medianInPlace(arrays.fKurtosis, count));
}
