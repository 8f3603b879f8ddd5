#pragma once

#include "numerics/PentadiagonalSolver.h"

#include <functional>
#include <vector>

namespace Utils {
namespace Matrix {

/// What the penalised least squares baselines have in common: a Whittaker smoother whose weights are made anew from the
/// residuals d = y - z until they settle. Points far above the curve lose their weight, so the curve falls to the
/// baseline. The methods differ in the weights and in when they stop.
///
/// The least squares line of y is taken out first and put back at the end: lines pass the smoother unchanged, and what
/// is left loses fewer digits. An object keeps its work space; no iteration allocates. About 100 bytes a point.
class TReweightedSmoother
{
public:
    /// The residuals below 0, of the points that take part.
    struct TBelow
    {
        int fCount = 0;
        double fMean = 0.0;
        double fDeviation = 0.0; // sample standard deviation; 0 for fewer than two points
    };
    /// Fills `weights` from `residuals`, `count` of each; called for one block of points after the other.
    using TWeights = std::function<void(const double *residuals, double *weights, int count)>;

    /// Takes y[0..n-1], n > 0, and sets all weights to 1. Points with a non-zero entry in `excluded`, which may be
    /// null, have weight 0 for good and count nowhere.
    void start(int n, const double *y, const unsigned char *excluded = nullptr);
    /// The curve z of the present weights.
    void smooth(double lambda);
    TBelow below();
    /// Makes new weights from the residuals and returns the norm of their change over the norm of the present ones;
    /// they hold from accept() on.
    double reweight(const TWeights &weights);
    /// Whether the new weights are numbers and not all 0; otherwise the next system could not be solved.
    bool canAccept() const { return fNextNorm > 0.0; }
    void accept();
    /// The present curve, with the line put back.
    void write(double *z) const;

    /// Gives the work space back when it is larger than for that many points.
    void trim(int points);

private:
    void removeLine(const double *y);

    TPentadiagonalSolver fSolver;
    int fCount = 0;
    double fMean = 0.0;  // of the line,
    double fSlope = 0.0; // and its rise per point
    std::vector<double> fY;
    std::vector<double> fZ;
    std::vector<double> fUse; // 1, or 0 for an excluded point; empty when all take part
    std::vector<double> fWeights;
    std::vector<double> fNextWeights;
    double fShift = 0.0; // mean of the last negative residuals, from which the next ones are counted
    double fNorm = 0.0;  // sums of the squares of the weights
    double fNextNorm = 0.0;
};

} // namespace Matrix
} // namespace Utils
