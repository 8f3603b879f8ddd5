#pragma once

#include <vector>

/// A band: position and full width at half height in x units, height in y units.
struct TBand
{
    double fCentre;
    double fHeight;
    double fWidth;
};

/// Lorentz bands at x: molecules in a condensed phase that collide often.
double lorentzAt(double x, const std::vector<TBand> &bands);

/// Gauss bands at x: many slightly different surroundings.
double gaussAt(double x, const std::vector<TBand> &bands);

/// A mixture of both, `lorentzShare` of the height from the former.
double mixedAt(double x, const std::vector<TBand> &bands, double lorentzShare);
