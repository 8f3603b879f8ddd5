#include "TBands.h"

#include <cmath>

double lorentzAt(double x, const std::vector<TBand> &bands)
{
    double sum = 0.0;
    for (const TBand &band : bands) {
        const double t = 2.0 * (x - band.fCentre) / band.fWidth;
        sum += band.fHeight / (1.0 + t * t);
    }
    return sum;
}

double gaussAt(double x, const std::vector<TBand> &bands)
{
    constexpr double cFourLn2 = 2.772588722239781;
    double sum = 0.0;
    for (const TBand &band : bands) {
        const double t = (x - band.fCentre) / band.fWidth;
        sum += band.fHeight * std::exp(-cFourLn2 * t * t);
    }
    return sum;
}

double mixedAt(double x, const std::vector<TBand> &bands, double lorentzShare)
{
    return lorentzShare * lorentzAt(x, bands) + (1.0 - lorentzShare) * gaussAt(x, bands);
}
