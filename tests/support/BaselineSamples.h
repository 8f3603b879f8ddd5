#pragma once

#include <cmath>
#include <random>
#include <vector>

/// Simulated spectra whose baseline is known, for tests and measurements of baseline methods.
struct BaselineSample
{
    std::vector<double> fY;
    std::vector<double> fBaseline;
    std::vector<unsigned char> fMask; // 1 within two half-widths of a peak's centre

    /// `count` points with `peaks` Gaussian or Lorentzian peaks of heights 0.2 to 1 and full widths at half height from
    /// `narrow` to twice that, in points; white noise of that deviation. The kind of baseline, 0 to 3: polynomial,
    /// broad hump, sine, straight line.
    BaselineSample(unsigned seed, int count, int peaks, double narrow, double noise, int kind)
        : fY(size_t(count))
        , fBaseline(size_t(count))
        , fMask(size_t(count))
    {
        std::mt19937 engine(seed);
        const auto uniform = [&engine] { return double(engine()) / 4294967296.0; };
        const double a = uniform() - 0.3;
        const double b = 2.0 * uniform() - 1.0;
        const double c = uniform();
        for (size_t i = 0; i < fBaseline.size(); ++i) {
            const double x = double(i) / (count - 1);
            const double hump = (x - 0.2 - 0.6 * c) / 0.25;
            fBaseline[i] = kind == 0   ? a + b * x - 1.5 * c * x * x
                           : kind == 1 ? a + std::exp(-0.5 * hump * hump)
                           : kind == 2 ? a + 0.4 * std::sin(4.0 * x + 6.0 * b)
                                       : a + b * x;
        }
        fY = fBaseline;
        for (int p = 0; p < peaks; ++p) {
            const double centre = (0.03 + 0.94 * uniform()) * count;
            const double half = 0.5 * narrow * (1.0 + uniform());
            const double height = 0.2 + 0.8 * uniform();
            const bool lorentz = uniform() < 0.4;
            for (int i = 0; i < count; ++i) {
                const double u = (i - centre) / half;
                fY[size_t(i)] += height * (lorentz ? 1.0 / (1.0 + u * u) : std::exp(-u * u * std::log(2.0)));
                if (std::fabs(u) < 2.0)
                    fMask[size_t(i)] = 1;
            }
        }
        for (double &value : fY) { // Box and Muller: the library's normal distribution differs between systems
            const double radius = std::sqrt(-2.0 * std::log(1.0 - uniform()));
            value += noise * radius * std::cos(6.283185307179586 * uniform());
        }
    }

    /// Root mean square distance of a curve from the true baseline.
    double error(const std::vector<double> &z) const
    {
        double squares = 0.0;
        for (size_t i = 0; i < z.size(); ++i)
            squares += (z[i] - fBaseline[i]) * (z[i] - fBaseline[i]);
        return std::sqrt(squares / double(z.size()));
    }
};
