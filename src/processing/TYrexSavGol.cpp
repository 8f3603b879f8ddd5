#include "TYrexSavGol.h"

#include <QtGlobal>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

// The loader takes the variant for the processor; without fused multiplications both give the same bits.
#if defined(__x86_64__) && defined(__ELF__) && defined(__has_attribute)
#if __has_attribute(target_clones)
#define YREX_WIDE_VECTORS __attribute__((target_clones("avx", "default")))
#endif
#endif
#ifndef YREX_WIDE_VECTORS
#define YREX_WIDE_VECTORS
#endif

namespace {

constexpr double cSmallestPivot = 1e-20; // stands for a pivot of 0

[[noreturn]] void endProcess(const char *message)
{
    std::fprintf(stderr, "Numerical Recipes run-time error...\n%s\n...now exiting to system...\n", message);
    std::exit(1);
}

/// A square matrix, decomposed in place into a lower triangle with unit diagonal and an upper one.
class TLuMatrix
{
public:
    explicit TLuMatrix(int size)
        : fSize(size)
        , fValues(std::size_t(size) * std::size_t(size), 0.0)
        , fRowOrder(std::size_t(size), 0)
    {
    }

    double &at(int row, int column) { return fValues[std::size_t(row) * std::size_t(fSize) + std::size_t(column)]; }

    void decompose();
    /// b := the solution of A x = b.
    void solve(std::vector<double> &b);

private:
    std::vector<double> rowScales();
    void swapRows(int a, int b);

    int fSize;
    std::vector<double> fValues;
    std::vector<int> fRowOrder; // the row that step j exchanged row j with
};

std::vector<double> TLuMatrix::rowScales()
{
    std::vector<double> scales;
    for (int i = 0; i < fSize; ++i) {
        double largest = 0.0;
        for (int j = 0; j < fSize; ++j)
            largest = std::max(largest, std::abs(at(i, j)));
        if (largest == 0.0)
            endProcess("Singular matrix in routine ludcmp");
        scales.push_back(1.0 / largest);
    }
    return scales;
}

void TLuMatrix::swapRows(int a, int b)
{
    for (int j = 0; j < fSize; ++j)
        std::swap(at(a, j), at(b, j));
}

void TLuMatrix::decompose()
{
    std::vector<double> scales = rowScales();
    for (int j = 0; j < fSize; ++j) {
        int pivotRow = j;
        double largest = 0.0;
        for (int i = 0; i < fSize; ++i) {
            double sum = at(i, j);
            for (int k = 0; k < std::min(i, j); ++k)
                sum -= at(i, k) * at(k, j);
            at(i, j) = sum;
            const double merit = scales[std::size_t(i)] * std::abs(sum);
            if (i >= j && merit >= largest) { // of equal rows the later one
                largest = merit;
                pivotRow = i;
            }
        }
        if (pivotRow != j) {
            swapRows(pivotRow, j);
            scales[std::size_t(pivotRow)] = scales[std::size_t(j)];
        }
        fRowOrder[std::size_t(j)] = pivotRow;
        if (at(j, j) == 0.0)
            at(j, j) = cSmallestPivot;
        for (int i = j + 1; i < fSize; ++i)
            at(i, j) /= at(j, j);
    }
}

void TLuMatrix::solve(std::vector<double> &b)
{
    for (int i = 0; i < fSize; ++i) {
        std::swap(b[std::size_t(i)], b[std::size_t(fRowOrder[std::size_t(i)])]);
        for (int j = 0; j < i; ++j)
            b[std::size_t(i)] -= at(i, j) * b[std::size_t(j)];
    }
    for (int i = fSize - 1; i >= 0; --i) {
        for (int j = i + 1; j < fSize; ++j)
            b[std::size_t(i)] -= at(i, j) * b[std::size_t(j)];
        b[std::size_t(i)] /= at(i, i);
    }
}

/// A[i][j] = sum of k^(i+j) over the window, 0^0 = 1.
TLuMatrix normalEquations(int nl, int nr, int m)
{
    TLuMatrix matrix(m + 1);
    for (int power = 0; power <= 2 * m; ++power) {
        double sum = power == 0 ? 1.0 : 0.0;
        for (int k = 1; k <= nr; ++k)
            sum += std::pow(double(k), power);
        for (int k = 1; k <= nl; ++k)
            sum += std::pow(double(-k), power);
        for (int i = std::max(0, power - m); i <= std::min(power, m); ++i)
            matrix.at(i, power - i) = sum;
    }
    return matrix;
}

constexpr int cLanes = 32;   // neighbouring outputs summed side by side, each in its own order
constexpr int cBlock = 2048; // outputs between two moves of the window; the block stays in the first cache

/// out[i] = sum of kernel[j] in[i + j] for i in [0, count); reads up to cLanes - 1 inputs beyond those it needs.
YREX_WIDE_VECTORS void correlate(const double *in, int count, const double *kernel, int len, double *out)
{
    for (int i = 0; i < count; i += cLanes) {
        double sums[cLanes] = {};
        for (int j = 0; j < len; ++j)
            for (int lane = 0; lane < cLanes; ++lane)
                sums[lane] += kernel[j] * in[i + j + lane];
        std::copy_n(sums, std::min(cLanes, count - i), out + i);
    }
}

void unfold(const double *kernel, int len, bool wrapped, double *out)
{
    if (!wrapped) {
        std::copy_n(kernel, len, out);
        return;
    }
    const int half = (len - 1) / 2;
    out[half] = kernel[0];
    for (int j = 1; j <= half; ++j) {
        out[half - j] = kernel[j];
        out[half + j] = kernel[len - j];
    }
}

} // namespace

bool TYrexSavGol::areUsable(int np, int nl, int nr, int ld, int m)
{
    return nl >= 0 && nr >= 0 && ld >= 0 && ld <= m && m <= qint64(nl) + nr && np > qint64(nl) + nr;
}

void TYrexSavGol::savgol(double *c, int np, int nl, int nr, int ld, int m)
{
    if (!areUsable(np, nl, nr, ld, m))
        endProcess("bad args in savgol");
    TLuMatrix matrix = normalEquations(nl, nr, m);
    matrix.decompose();
    std::vector<double> b(std::size_t(m) + 1, 0.0);
    b[std::size_t(ld)] = 1.0;
    matrix.solve(b);
    std::fill_n(c, np, 0.0);
    for (int k = -nl; k <= nr; ++k) {
        double sum = b[0];
        double power = 1.0;
        for (int j = 1; j <= m; ++j) {
            power *= k;
            sum += b[std::size_t(j)] * power;
        }
        c[(np - k) % np] = sum;
    }
}

void TYrexSavGol::convolve(double *y, int n, const double *kernel, int len, bool wrapped)
{
    if (!y || !kernel || n < 1 || len < 1 || len % 2 == 0)
        return;
    const int half = (len - 1) / 2;
    static thread_local std::vector<double> scratch;
    scratch.assign(2 * std::size_t(len) + std::min(n, cBlock) + cLanes, 0.0);
    double *weights = scratch.data();
    double *window = weights + len; // the original values from `half` before the block to `half` behind it
    unfold(kernel, len, wrapped, weights);

    const double last = y[n - 1];
    const auto original = [=](int i) { return i < n ? y[i] : last; };
    std::fill_n(window, half, y[0]);
    for (int i = 0; i < half; ++i)
        window[half + i] = original(i);
    for (int start = 0; start < n; start += cBlock) {
        const int count = std::min(cBlock, n - start);
        const int inside = std::min(std::max(n - start - half, 0), count);
        if (inside > 0)
            std::copy_n(y + start + half, inside, window + 2 * half);
        std::fill(window + 2 * half + inside, window + 2 * half + count, last);
        correlate(window, count, weights, len, y + start);
        std::copy_n(window + count, 2 * half, window);
    }
}
