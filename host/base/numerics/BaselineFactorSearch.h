#pragma once

#include "numerics/MatrixUtils.h"
#include "numerics/TReweightedSmoother.h"

#include <vector>

namespace Utils {
namespace Matrix {

/// One search of a smoothing factor, with its work space; what it does and why stands at iarplssGA.
class TBaselineFactorSearch
{
public:
    /// n >= 16 and y finite and not constant. Takes copies.
    TBaselineFactorSearch(int n, const unsigned char *mask, const double *y);

    /// log10 of lambda for iarplss, for the full number of points.
    double smoothingFactor(double ratio);
    /// The factor for snipBC.
    double clippingFactor();
    /// How the factors did in the last search.
    const std::vector<TFactorScore> &scores() const { return fScores; }

private:
    void takeBlockMeans(int n, const unsigned char *mask, const double *y);
    void dropUselessMask();
    int gapLength() const;
    double predictionError(double log10Lambda, int gap, double ratio);
    void fitReference(double ratio);
    double distanceToReference(const std::vector<double> &z) const;
    double densityShift() const;
    void addWitness(const std::vector<double> &values);

    TReweightedSmoother fSmoother;
    int fCount = 0;
    int fBlock = 1; // points of the data in one point of the search
    std::vector<double> fY;
    std::vector<unsigned char> fMask;
    std::vector<unsigned char> fExcluded; // the mask and a fold
    std::vector<double> fReference;
    std::vector<double> fZ;
    std::vector<double> fErrors;
    std::vector<TFactorScore> fScores;
};

} // namespace Matrix
} // namespace Utils
