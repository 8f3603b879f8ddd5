#pragma once

#include <QVector>
#include <cmath>

/// The resampler as it is defined: every array of the method is built, and every new point searches its interval from
/// the start. Quadratic; the judge of the one in use.
inline int plainResample(const QVector<double> &x, QVector<double> &y, const QVector<double> &newX)
{
    const int n = x.size();
    const int m = newX.size();
    if (n >= m || y.size() != n || n < 2)
        return 1;
    for (int i = 1; i < n; ++i) {
        if (x[i] - x[i - 1] < 0)
            return 1;
    }
    for (int i = 1; i < m; ++i) {
        if (newX[i] - newX[i - 1] < 0)
            return 1;
    }
    QVector<double> h(n - 1), delta(n - 1), c2(n - 1), c3(n - 1), d(n);
    for (int k = 0; k < n - 1; ++k) {
        h[k] = x[k + 1] - x[k];
        delta[k] = (y[k + 1] - y[k]) / h[k];
    }
    if (n == 2) {
        d[0] = d[1] = delta[0];
    } else {
        d[0] = ((2 * h[0] + h[1]) * delta[0] - h[0] * delta[1]) / (h[0] + h[1]);
        if (!(d[0] * delta[0] > 0))
            d[0] = 0;
        else if (delta[0] * delta[1] < 0 && std::fabs(d[0]) > std::fabs(3 * delta[0]))
            d[0] = 3 * delta[0];
        for (int k = 1; k <= n - 2; ++k) {
            d[k] = 0;
            if (delta[k - 1] * delta[k] > 0) {
                d[k] = 3 * (h[k - 1] + h[k]) * std::fabs(delta[k - 1]) * std::fabs(delta[k]) /
                       ((h[k - 1] + 2 * h[k]) * delta[k] + (2 * h[k - 1] + h[k]) * delta[k - 1]);
            }
        }
        d[n - 1] = ((2 * h[n - 2] + h[n - 3]) * delta[n - 2] - h[n - 2] * delta[n - 3]) / (h[n - 2] + h[n - 3]);
        if (!(d[n - 1] * delta[n - 2] > 0))
            d[n - 1] = 0;
        else if (delta[n - 2] * delta[n - 3] < 0 && std::fabs(d[n - 1]) > std::fabs(3 * delta[n - 2]))
            d[n - 1] = 3 * delta[n - 2];
    }
    for (int k = 0; k < n - 1; ++k) {
        c2[k] = (-(d[k + 1] - delta[k]) - 2 * (d[k] - delta[k])) / h[k];
        c3[k] = ((d[k + 1] - delta[k]) + (d[k] - delta[k])) / (h[k] * h[k]);
    }
    QVector<double> out(m);
    out[0] = y[0];
    for (int j = 1; j < m; ++j) {
        int k = 0;
        while (k < n - 2 && newX[j] > x[k + 1])
            ++k;
        const double t = newX[j] - x[k];
        out[j] = newX[j] == x[k + 1] ? y[k + 1] : y[k] + d[k] * t + c2[k] * t * t + c3[k] * t * t * t;
    }
    y = out;
    return 0;
}
