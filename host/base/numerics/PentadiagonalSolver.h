#pragma once

#include <vector>

namespace Utils {
namespace Matrix {

/// Solves (W + lambda D'D) z = W y, D taking second differences: the weighted second-order Whittaker smoother.
///
/// Elimination without pivoting, since the matrix is symmetric and positive definite, from both ends towards the
/// middle: two independent recurrences keep the processor busy where one would wait for its own divisions. It runs in
/// long double, because the error grows with lambda and with the length of stretches without weight; with the 64 bit
/// mantissa of x86 it is some 1e-4 of the size of y at worst, for a million points of which 10 % in one stretch have
/// none. Time and memory O(n), 48 bytes a point. An object keeps its work space from one solution to the next.
///
/// Reference: P. H. C. Eilers, Anal. Chem. 75 (2003) 3631-3636, doi 10.1021/ac034173t.
class TPentadiagonalSolver
{
public:
    /// Larger smoothing factors count as this one: beyond it rounding decides where the curve lies.
    static constexpr double cMaxLambda = 1e15;

    /// Fills z[0..n-1], which must not overlap y and w. Weights are not negative; a null pointer means all 1. Stretches
    /// of weight 0 are bridged. z = y for n < 3, where nothing is penalised, and for a lambda that is not above 0. A
    /// NaN in y or w makes all of z NaN; where next to no point has weight z is finite and without meaning.
    void solve(int n, const double *y, const double *w, double lambda, double *z);

    /// Gives the work space back when it is larger than for that many points.
    void trim(int points);

private:
    friend class TEliminationChain;

    /// z[i] = fRight - fFirst * z[i + 1] - fSecond * z[i + 2]; seen from the other end in the right half.
    struct TRow
    {
        long double fFirst;
        long double fSecond;
        long double fRight;
    };

    void solveFromOneEnd(int n, const double *y, const double *w, long double scale, double *z);
    bool solveFromBothEnds(int n, const double *y, const double *w, long double scale, double *z);

    std::vector<TRow> fRows;
};

/// One solution with a solver of its own; see TPentadiagonalSolver::solve.
void whittakerSmooth(int n, const double *y, const double *w, double lambda, double *z);

} // namespace Matrix
} // namespace Utils
