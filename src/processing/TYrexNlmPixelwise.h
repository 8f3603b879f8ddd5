#pragma once

/// What steers the pixelwise non-local means.
struct TYrexNlmParams
{
    int fPatchRadius = 3;
    int fSearchRadius = 3;
    double fDecay = 0.7;    // width of the Gaussian that weighs the pixels of a patch, in pixels; 0: all weigh the same
    float fStrength = 0.0f; // distances are counted in this unit of the image's values
    /// Pixels that the mirrored edge needs; both sides of an image must be larger.
    int border() const { return fPatchRadius + fSearchRadius; }
};

/// The parameters for a noise level, in the unit of the image: radii and decay grow with it, the strength is 1.7 times
/// the noise at first and less for higher ones.
TYrexNlmParams nlmParams(double noise);

/// Columns that an image scaled to a span of 1 must at least have.
constexpr int cNlmSmallestWidth = 7;

/// Parameter-free pixelwise non-local means of `rows` x `cols` floats, row after row, `image` to `out` (distinct). The
/// noise is m3 of calc2DMoments with window 9. See nlmDenoise.
void nlmPixelwise(const float *image, float *out, int rows, int cols, bool fast);

/// Every pixel becomes the mean of the pixels of its search window, weighted with exp(-d), d the distance of the
/// patches around both (A. Buades, B. Coll, J.-M. Morel, doi 10.1137/040616024 and 10.5201/ipol.2011.bcm_nlm):
///
///     d = sum over the patch of w (difference)^2,  w a Gaussian of sum 1 / strength^2
///
/// from a table with linear interpolation; d above 30 weighs nothing. Departs from it: a patch weighs 1 in its own
/// mean, and nothing is subtracted from d. The fast method sums d over rows first, where w is a product; the results
/// differ by rounding only. The edge is mirrored about the outermost pixels. Differences are floats, sums doubles.
///
/// An image side that is not above border() ends the process: callers ask first. The image comes out unchanged when the
/// strength is not above 0 or a value is not finite. Bits depend neither on the number of threads nor on whether equal
/// rows, as a spectrum has them, are computed as one.
/// Cost: (2 search + 1)^2 (2 patch + 1)^2 multiplications a pixel, fast one factor (2 patch + 1) less; equal rows, for
/// the radii 3 and 3, 147 or 42 a column.
void nlmDenoise(const float *image, float *out, int rows, int cols, const TYrexNlmParams &params, bool fast);
