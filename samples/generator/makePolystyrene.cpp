#include "makePolystyrene.h"

#include "TBands.h"
#include "TNoise.h"

#include <cmath>

namespace {

constexpr double cTwoPi = 6.283185307179586;

// 1/cm, absorbance of a film of some 50 micrometres, 1/cm
const std::vector<TBand> cBands{
    {3103, 0.06, 14}, {3082, 0.28, 13}, {3060, 0.44, 16}, {3026, 0.78, 16}, {3001, 0.16, 12}, {2924, 0.86, 34},
    {2850, 0.36, 26}, {1943, 0.17, 20}, {1870, 0.12, 20}, {1803, 0.09, 22}, {1745, 0.06, 20}, {1601, 0.46, 9},
    {1583, 0.16, 9},  {1541, 0.04, 14}, {1493, 0.92, 8},  {1452, 0.80, 12}, {1371, 0.13, 16}, {1328, 0.08, 14},
    {1312, 0.07, 14}, {1181, 0.14, 12}, {1154, 0.15, 11}, {1069, 0.17, 12}, {1028, 0.31, 10}, {1003, 0.06, 10},
    {964, 0.06, 14},  {907, 0.20, 14},  {842, 0.17, 16},  {757, 0.95, 12},  {698, 1.72, 10},  {621, 0.05, 12},
    {540, 0.42, 16},
};

/// What is no band: light scattered by the film, which grows towards high wavenumbers, and a slow drift.
double baselineAt(double wavenumber)
{
    const double t = (wavenumber - 400.0) / 3600.0;
    return 0.035 + 0.09 * t * t + 0.025 * std::sin(cTwoPi * 0.7 * t + 0.6);
}

} // namespace

TTable makePolystyrene()
{
    TTable table;
    table.fX = evenX(4000.0, 400.0, -2.0);
    TNoise noise(1601);
    std::vector<double> y;
    for (const double x : table.fX) {
        // the detector sees less and less light towards its cut-off
        const double spread = 7e-4 * (1.0 + 4.0 * std::exp(-(x - 400.0) / 40.0));
        y.push_back(mixedAt(x, cBands, 0.75) + baselineAt(x) + spread * noise.normal());
    }
    table.fColumns.push_back(y);
    return table;
}
