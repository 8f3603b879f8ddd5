#pragma once

namespace Utils {
/// Filters of images of floats, row after row: pixel (x, y) is image[y * width + x]. A spectrum takes part as an image
/// of equal rows, and such images are filtered as one row where that gives the same result.
///
/// All filters take values of any unit, allocate only scratch that later calls reuse, and do nothing for a null pointer
/// or a size below 1. "Clamped" means that the nearest edge pixel stands for pixels outside. An image that holds a NaN
/// or an infinity is not filtered: the result is the input.
namespace Algorithm {

/// The deviation of the white noise on a row, in its unit: 1.4826 times the median of |2 x[i] - x[i-1] - x[i+1]| /
/// sqrt(6). Straight lines count as noiseless, and narrow peaks hardly move the median. 0 for fewer than 3 points.
double rowNoise(const float *row, int n);

/// Median-modified Wiener filter, `in` to `out` (distinct), by C. V. Cannistraci et al., doi 10.1002/pmic.200800538:
///
///     out = median + max(0, s2 - v) / s2 * (in - median),   s2 = 0 gives out = median
///
/// with median and variance s2 (divisor window^2) of the clamped window around the pixel; an even window is raised by
/// one. Departs from it: the noise variance v is that of rowNoise over all rows together, not the mean of all s2, which
/// strong peaks inflate until small ones are flattened; narrower than 3 pixels v is the mean of all s2.
/// Cost: O(window^2) a pixel; equal rows O(window) a column, by a sorting network for window 7.
void mmwfFilter(const float *in, float *out, int width, int height, int window);
/// The same with a noise variance that is known.
void mmwfFilter(const float *in, float *out, int width, int height, int window, double noiseVariance);

/// Blockwise non-local means in place, by A. Buades et al., doi 10.1137/040616024, and P. Coupe et al., doi
/// 10.1109/TMI.2007.906087: blocks of 7 points around every second point and the last are replaced by the mean of the
/// blocks up to 10 points away, weighted with exp(-mean squared difference / (2 s^2)), s = 3 noiseFactor rowNoise; a
/// point is the mean over the blocks that cover it.
///
/// In equal rows vertical shifts change nothing, so one row is computed and copied; other images are filtered row by
/// row. The ends are mirrored about the end points, in rows of at most 13 points clamped. Departs from the publication:
/// a block weighs 1 in its own mean, since the largest of the other weights destroys rare narrow peaks.
/// Unchanged: rows whose s is 0 or not finite, so those of fewer than 3 points and those without noise.
/// Cost: some 75 multiplications and 10 exponentials a point.
void nonLocalMeansDenoising(float *image, int rows, int cols, double noiseFactor);

/// Hybrid median filter of 5 x 5 pixels, `in` to `out` (distinct), edges clamped, by A. Nieminen, P. Heinonen, Y.
/// Neuvo, IEEE Trans. Pattern Anal. Mach. Intell. 9 (1987) 74-90: the median of the median of the upright cross of 9,
/// of the diagonal cross of 9, and of the pixel.
void hybridmedianfilter(const float *in, float *out, int width, int height);

/// Moments over the windows around all pixels, edges clamped, an even window raised by one: the medians over all
/// windows of the mean (m1), variance (m2, divisor window^2), skewness (m4) and excess kurtosis (m5; both 0 for a
/// window without variance), and the noise level
///
///     m3 = sqrt(median of max(0, variance - slope^2 Sxx / window^2) * window / (window - 2))
///
/// the local deviation without the local slope along x (least squares; Sxx is the window's sum of squared distances
/// from its middle column). The slope would count as noise on clean spectra and have them blurred. The last factor
/// corrects for the two fitted values and suits equal rows. window < 3: m3 = sqrt(m2). All 0 for an image that cannot
/// be used. Cost: O(window^2) a pixel; equal rows O(window) a column.
void calc2DMoments(const float *image, int width, int height, int window, float &m1, float &m2, float &m3, float &m4,
                   float &m5);

} // namespace Algorithm
} // namespace Utils
