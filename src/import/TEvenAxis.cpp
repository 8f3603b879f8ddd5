#include "TEvenAxis.h"

#include "resampleMonotoneCubic.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double cEvenBelow = 1.01; // bounds of the mean of an even axis over its middle
constexpr double cEvenAbove = 0.99;

} // namespace

bool isUnevenAxis(const QVector<double> &x)
{
    if (x.size() < 2)
        return false;
    double sum = 0.0;
    for (const double value : x)
        sum += value;
    const double mean = sum / x.size();
    const double ratio = mean / ((x.last() + x.first()) * 0.5);
    return ratio > cEvenBelow || ratio < cEvenAbove;
}

bool isNearEvenGrid(const QVector<double> &x)
{
    const double step = x.size() < 2 ? 0.0 : (x.last() - x.first()) / (x.size() - 1);
    for (int i = 0; i < x.size(); ++i) {
        if (!(std::fabs(x.at(i) - (x.first() + i * step)) <= 0.5 * step))
            return false;
    }
    return true;
}

double smallestStep(const QVector<double> &x)
{
    double step = std::numeric_limits<double>::infinity();
    for (int i = 1; i < x.size(); ++i)
        step = std::min(step, std::fabs(x.at(i) - x.at(i - 1)));
    return step;
}

TFinestGrid finestGrid(const QVector<double> &x)
{
    TFinestGrid grid;
    if (x.isEmpty())
        return grid;
    grid.fStep = smallestStep(x);
    grid.fCount = std::round((x.last() - x.first()) / grid.fStep);
    return grid;
}

void putOnGrid(const QVector<double> &x, double step, int count, QVector<double> *y)
{
    resampleMonotoneCubic(x, *y, TEvenGrid{x.value(0), step, count}); // refuses where the grid is no finer
    y->resize(count);
    y->squeeze();
}
