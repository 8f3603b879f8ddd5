// How good the search of the smoothing factor is: the distance from the true baseline of simulated spectra with the
// factor that it finds, over the distance with the best factor of the grid and with fixed ones.
#include "BaselineSamples.h"
#include "numerics/MatrixUtils.h"

#include <algorithm>
#include <cstdio>
#include <limits>

namespace {

using TBaseline = TOperationResult (*)(int, const double *, double *, double);

TOperationResult smoothBaseline(int n, const double *y, double *z, double factor)
{
    return Utils::Matrix::iarplss(n, y, z, std::pow(10.0, factor), 1e-6);
}

double errorOf(const BaselineSample &sample, TBaseline baseline, double factor)
{
    std::vector<double> z(sample.fY.size());
    baseline(int(z.size()), sample.fY.data(), z.data(), factor);
    return sample.error(z);
}

struct TRatios
{
    std::vector<double> fSearched;
    std::vector<double> fFixed;

    void add(const BaselineSample &sample, TBaseline baseline, double found, double fixed, double step)
    {
        double best = std::numeric_limits<double>::infinity();
        for (double factor = 3.0; factor <= 12.0; factor += step)
            best = std::min(best, errorOf(sample, baseline, factor));
        fSearched.push_back(errorOf(sample, baseline, found) / best);
        fFixed.push_back(errorOf(sample, baseline, fixed) / best);
    }
    void print(const char *name)
    {
        for (std::vector<double> *list : {&fSearched, &fFixed})
            std::sort(list->begin(), list->end());
        const size_t count = fSearched.size();
        std::printf("%-16s %8zu  %8.2f %8.2f   %8.2f %8.2f\n", name, count, fSearched[count / 2],
                    fSearched[9 * count / 10], fFixed[count / 2], fFixed[9 * count / 10]);
    }
};

} // namespace

int main()
{
    TRatios smooth;
    TRatios clipped;
    unsigned seed = 0;
    for (const int n : {600, 1500, 4000}) {
        for (const double width : {0.006, 0.02, 0.05}) { // full width at half height over the spectrum's
            for (const double noise : {0.0005, 0.005, 0.03}) {
                for (int kind = 0; kind < 4; ++kind) {
                    const int peaks = 1 + int(++seed * 7 % 12);
                    BaselineSample sample(seed, n, peaks, width * n, noise, kind);
                    if (seed % 3 == 0) // a mask that knows nothing
                        std::fill(sample.fMask.begin(), sample.fMask.end(), static_cast<unsigned char>(0));
                    double factor = 5.0;
                    Utils::Matrix::iarplssGA(n, sample.fMask.data(), sample.fY.data(), factor, 1e-6);
                    smooth.add(sample, smoothBaseline, factor, 6.0, 0.5);
                    Utils::Matrix::snipBCGA(n, sample.fMask.data(), sample.fY.data(), factor);
                    clipped.add(sample, Utils::Matrix::snipBC, factor, 5.0, 0.1);
                }
            }
        }
    }
    std::printf("error over that of the best factor      searched        fixed at 6 or 5\n");
    std::printf("method            spectra    median  9 of 10     median  9 of 10\n");
    smooth.print("least squares");
    clipped.print("clipping");
    return 0;
}
