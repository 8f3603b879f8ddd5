#include "makeRaman.h"

#include "TBands.h"
#include "TNoise.h"

#include <cmath>

namespace {

// Raman shift in 1/cm, counts, 1/cm
const std::vector<TBand> cBands{
    {213.3, 2900, 12},  {329.2, 3300, 11},  {390.9, 3500, 12},  {465.1, 1900, 10},  {504.0, 1700, 10},
    {651.6, 6300, 8},   {710.8, 1500, 9},   {797.2, 5200, 9},   {834.5, 2700, 8},   {857.9, 8200, 9},
    {968.7, 2100, 9},   {1105.5, 1400, 9},  {1168.5, 6900, 9},  {1236.8, 7600, 11}, {1278.5, 3600, 10},
    {1323.9, 8800, 12}, {1371.5, 3400, 11}, {1515.1, 1400, 11}, {1561.5, 3900, 13}, {1610.5, 6500, 12},
    {1648.4, 7400, 12},
};

/// Fluorescence of traces of impurities, and the dark level of the camera.
double backgroundAt(double shift)
{
    const double hump = (shift - 520.0) / 700.0;
    return 1200.0 + 21000.0 * std::exp(-hump * hump) + 9000.0 * std::exp(-(shift - 200.0) / 260.0);
}

} // namespace

TTable makeRaman()
{
    constexpr int cAccumulations = 10;
    constexpr double cReadNoise = 12.0; // counts in one exposure
    TTable table;
    table.fX = evenX(200.0, 1800.0, 1.0);
    table.fXDecimals = 1;
    table.fYDecimals = 1; // a mean of ten exposures
    TNoise noise(785);
    std::vector<double> y;
    for (const double x : table.fX) {
        const double counts = lorentzAt(x, cBands) + backgroundAt(x);
        const double spread = std::sqrt((counts + cReadNoise * cReadNoise) / cAccumulations);
        y.push_back(counts + spread * noise.normal());
    }
    table.fColumns.push_back(y);
    return table;
}
