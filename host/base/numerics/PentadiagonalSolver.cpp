#include "numerics/PentadiagonalSolver.h"

#include <algorithm>
#include <cmath>

namespace Utils {
namespace Matrix {

namespace {

constexpr long double cSmallestPivot = 1e-18L; // reached only when next to no point has weight
constexpr int cMiddle = 4;                     // rows left between the two recurrences

// The rows of D'D: 1 -2 1 / -2 5 -4 1 / 1 -4 6 -4 1 / ..., mirrored at the other end.
constexpr long double cEndMain = 1.0L;
constexpr long double cNextMain = 5.0L;
constexpr long double cMain = 6.0L;
constexpr long double cEndFirst = -2.0L;
constexpr long double cFirst = -4.0L;
constexpr long double cSecond = 1.0L;

inline long double weightAt(const double *w, int i)
{
    return w ? static_cast<long double>(w[i]) : 1.0L;
}

/// Solves the symmetric positive definite system of the middle rows in place; `right` becomes the solution.
void solveMiddle(long double (&matrix)[cMiddle][cMiddle], long double (&right)[cMiddle])
{
    for (int k = 0; k < cMiddle; ++k) {
        const long double inverse = 1.0L / std::max(matrix[k][k], cSmallestPivot);
        for (int i = k + 1; i < cMiddle; ++i) {
            const long double factor = matrix[i][k] * inverse;
            for (int j = k; j < cMiddle; ++j)
                matrix[i][j] -= factor * matrix[k][j];
            right[i] -= factor * right[k];
        }
    }
    for (int i = cMiddle - 1; i >= 0; --i) {
        for (int j = i + 1; j < cMiddle; ++j)
            right[i] -= matrix[i][j] * right[j];
        right[i] /= std::max(matrix[i][i], cSmallestPivot);
    }
}

} // namespace

/// The elimination from one end. What the next row needs is kept as three sums that are formed as soon as their terms
/// are known; the pivot's is the one that the loop waits for.
class TEliminationChain
{
public:
    using TRow = TPentadiagonalSolver::TRow;

    /// Fills the next row from its elements on and behind the diagonal without the weight, its weight and right side;
    /// `last` is the row filled before it. `nextFirst` is the first off-diagonal of the row that will follow. With the
    /// guard a pivot that rounding left without a sign is replaced, which costs a tenth of the time.
    template <bool cGuarded>
    inline void next(TRow &row, const TRow &last, long double main, long double nextFirst, long double second,
                     long double weight, long double right)
    {
        long double pivot = main + weight - fOffPivot;
        if (cGuarded && !(pivot > cSmallestPivot))
            pivot = cSmallestPivot;
        const long double inverse = 1.0L / pivot;
        const long double first = fCoupling * inverse;
        const long double reduced = (right - fOffRight) * inverse;
        row.fFirst = first;
        row.fSecond = second * inverse;
        row.fRight = reduced;
        fOffPivot = first * fCoupling + last.fSecond;
        fOffRight = fCoupling * reduced + last.fRight;
        fCoupling = nextFirst - first;
    }

    /// Takes the eliminated rows out of the two that follow: `outer` is the nearer one, `last` the last row eliminated.
    void reduce(long double (&matrix)[cMiddle][cMiddle], long double (&right)[cMiddle], int outer, int inner,
                const TRow &last) const
    {
        matrix[outer][outer] -= fOffPivot;
        matrix[outer][inner] -= last.fFirst;
        matrix[inner][outer] -= last.fFirst;
        matrix[inner][inner] -= last.fSecond;
        right[outer] -= fOffRight;
        right[inner] -= last.fRight;
    }

private:
    long double fOffPivot = 0.0L;      // what the rows before take off the diagonal,
    long double fOffRight = 0.0L;      // off the right side,
    long double fCoupling = cEndFirst; // and what they leave of the first off-diagonal
};

void TPentadiagonalSolver::solve(int n, const double *y, const double *w, double lambda, double *z)
{
    if (n < 3 || !(lambda > 0.0)) {
        if (n > 0)
            std::copy_n(y, n, z);
        return;
    }
    if (fRows.size() < size_t(n))
        fRows.resize(size_t(n));
    // everything is divided by lambda, so that the pivots are of the order of 1
    const long double scale = 1.0L / static_cast<long double>(std::min(lambda, cMaxLambda));
    if (n < 2 * cMiddle)
        solveFromOneEnd(n, y, w, scale, z);
    else if (!solveFromBothEnds(n, y, w, scale, z))
        solveFromOneEnd(n, y, w, scale, z);
}

void TPentadiagonalSolver::trim(int points)
{
    if (fRows.size() > size_t(std::max(0, points)))
        std::vector<TRow>().swap(fRows);
}

void TPentadiagonalSolver::solveFromOneEnd(int n, const double *y, const double *w, long double scale, double *z)
{
    TEliminationChain chain;
    TRow last = {0.0L, 0.0L, 0.0L};
    for (int i = 0; i < n; ++i) {
        const int fromEnd = std::min(i, n - 1 - i);
        const long double main = fromEnd == 0 ? cEndMain : fromEnd > 1 ? cMain : n == 3 ? 4.0L : cNextMain;
        const long double nextFirst = i == n - 2 ? 0.0L : i == n - 3 ? cEndFirst : cFirst;
        const long double second = i < n - 2 ? cSecond : 0.0L;
        const long double weight = scale * weightAt(w, i);
        TRow &row = fRows[size_t(i)];
        chain.next<true>(row, last, main, nextFirst, second, weight, weight * y[i]);
        last = row;
    }
    long double nearer = 0.0L;
    long double farther = 0.0L;
    for (int i = n - 1; i >= 0; --i) {
        const TRow &row = fRows[size_t(i)];
        const long double value = (row.fRight - row.fSecond * farther) - row.fFirst * nearer;
        farther = nearer;
        nearer = value;
        z[i] = double(value);
    }
}

/// False when a pivot came out as 0: what that spoils reaches an end.
bool TPentadiagonalSolver::solveFromBothEnds(int n, const double *y, const double *w, long double scale, double *z)
{
    TRow *rows = fRows.data();
    const int leftCount = (n - cMiddle + 1) / 2; // for an odd n the left side takes a row more
    const int rightCount = n - cMiddle - leftCount;
    TEliminationChain left;
    TEliminationChain right;
    const TRow none = {0.0L, 0.0L, 0.0L};
    const auto eliminate = [&](TEliminationChain &chain, int i, const TRow &last, long double main) {
        const long double weight = scale * weightAt(w, i);
        chain.next<false>(rows[i], last, main, cFirst, cSecond, weight, weight * y[i]);
    };
    eliminate(left, 0, none, cEndMain);
    eliminate(right, n - 1, none, cEndMain);
    eliminate(left, 1, rows[0], cNextMain);
    eliminate(right, n - 2, rows[n - 1], cNextMain);
    for (int i = 2; i < rightCount; ++i) {
        eliminate(left, i, rows[i - 1], cMain);
        eliminate(right, n - 1 - i, rows[n - i], cMain);
    }
    if (leftCount > rightCount)
        eliminate(left, leftCount - 1, rows[leftCount - 2], cMain);

    long double matrix[cMiddle][cMiddle] = {{cMain, cFirst, cSecond, 0.0L},
                                            {cFirst, cMain, cFirst, cSecond},
                                            {cSecond, cFirst, cMain, cFirst},
                                            {0.0L, cSecond, cFirst, cMain}};
    long double middle[cMiddle];
    for (int k = 0; k < cMiddle; ++k) {
        const long double weight = scale * weightAt(w, leftCount + k);
        matrix[k][k] += weight;
        middle[k] = weight * y[leftCount + k];
    }
    left.reduce(matrix, middle, 0, 1, rows[leftCount - 1]);
    right.reduce(matrix, middle, 3, 2, rows[leftCount + cMiddle]);
    solveMiddle(matrix, middle);
    for (int k = 0; k < cMiddle; ++k)
        z[leftCount + k] = double(middle[k]);

    long double leftNearer = middle[0];
    long double leftFarther = middle[1];
    long double rightNearer = middle[3];
    long double rightFarther = middle[2];
    const auto substitute = [&](int i, long double &nearer, long double &farther) {
        const long double value = (rows[i].fRight - rows[i].fSecond * farther) - rows[i].fFirst * nearer;
        farther = nearer;
        nearer = value;
        z[i] = double(value);
    };
    if (leftCount > rightCount)
        substitute(leftCount - 1, leftNearer, leftFarther);
    for (int i = rightCount - 1; i >= 0; --i) {
        substitute(i, leftNearer, leftFarther);
        substitute(n - 1 - i, rightNearer, rightFarther);
    }
    return std::isfinite(leftNearer) && std::isfinite(rightNearer);
}

void whittakerSmooth(int n, const double *y, const double *w, double lambda, double *z)
{
    TPentadiagonalSolver().solve(n, y, w, lambda, z);
}

} // namespace Matrix
} // namespace Utils
