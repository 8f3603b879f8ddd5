#include "makeNir.h"

#include "TBands.h"
#include "TNoise.h"

namespace {

// nm, log(1/R), nm
const std::vector<TBand> cStarch{
    {1206.0, 0.045, 60.0}, {1362.0, 0.020, 40.0},  {1468.0, 0.110, 110.0}, {1580.0, 0.060, 90.0}, {1702.0, 0.030, 60.0},
    {1765.0, 0.030, 60.0}, {2100.0, 0.260, 130.0}, {2282.0, 0.150, 60.0},  {2322.0, 0.150, 60.0}, {2488.0, 0.160, 90.0},
};
const std::vector<TBand> cWater{{1193.0, 0.015, 50.0}, {1450.0, 0.170, 80.0}, {1934.0, 0.420, 75.0}};
const std::vector<TBand> cProtein{
    {1510.0, 0.040, 60.0}, {1690.0, 0.025, 60.0}, {1980.0, 0.060, 60.0}, {2058.0, 0.090, 60.0}, {2174.0, 0.090, 60.0},
};

constexpr int cPowders = 12;

/// What all powders have below their bands: absorption that grows towards long waves.
double groundAt(double wavelength)
{
    const double t = (wavelength - 1100.0) / 1400.0;
    return 0.16 + 0.22 * t + 0.06 * t * t;
}

} // namespace

TTable makeNir()
{
    TTable table;
    table.fX = evenX(1100.0, 2498.0, 2.0);
    TNoise noise(1940);
    for (int powder = 0; powder < cPowders; ++powder) {
        const double moisture = 0.70 + 0.60 * noise.uniform(); // of the mean content
        const double protein = 0.60 + 0.80 * noise.uniform();
        const double pathLength = 0.72 + 0.60 * noise.uniform(); // coarse grains let the light in deeper
        const double offset = -0.04 + 0.16 * noise.uniform();
        const double tilt = 0.05 * (noise.uniform() - 0.5);
        std::vector<double> y;
        for (const double x : table.fX) {
            const double pure =
                groundAt(x) + gaussAt(x, cStarch) + moisture * gaussAt(x, cWater) + protein * gaussAt(x, cProtein);
            const double scattered = offset + pathLength * pure + tilt * (x - 1800.0) / 700.0;
            y.push_back(scattered + 1.5e-4 * noise.normal());
        }
        table.fColumns.push_back(y);
    }
    return table;
}
