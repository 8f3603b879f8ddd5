#pragma once

#include <cmath>
#include <utility>
#include <vector>

/// (W + lambda D'D) z = W y with a full matrix and row exchanges, as the judge of band solvers. n of some hundred.
inline std::vector<double> denseWhittaker(const std::vector<double> &y, const std::vector<double> &w, double lambda)
{
    const size_t n = y.size();
    std::vector<std::vector<long double>> rows(n, std::vector<long double>(n + 1, 0.0L));
    const long double bend[3] = {1.0L, -2.0L, 1.0L};
    for (size_t k = 0; k + 2 < n; ++k) {
        for (size_t a = 0; a < 3; ++a) {
            for (size_t b = 0; b < 3; ++b)
                rows[k + a][k + b] += static_cast<long double>(lambda) * bend[a] * bend[b];
        }
    }
    for (size_t i = 0; i < n; ++i) {
        rows[i][i] += w[i];
        rows[i][n] = static_cast<long double>(w[i]) * y[i];
    }
    for (size_t k = 0; k < n; ++k) {
        size_t pivot = k;
        for (size_t i = k + 1; i < n; ++i)
            pivot = std::fabs(rows[i][k]) > std::fabs(rows[pivot][k]) ? i : pivot;
        std::swap(rows[k], rows[pivot]);
        for (size_t i = k + 1; i < n; ++i) {
            const long double factor = rows[i][k] / rows[k][k];
            for (size_t j = k; j <= n && factor != 0.0L; ++j)
                rows[i][j] -= factor * rows[k][j];
        }
    }
    std::vector<double> z(n);
    for (size_t i = n; i-- > 0;) {
        long double sum = rows[i][n];
        for (size_t j = i + 1; j < n; ++j)
            sum -= rows[i][j] * z[j];
        z[i] = double(sum / rows[i][i]);
    }
    return z;
}
