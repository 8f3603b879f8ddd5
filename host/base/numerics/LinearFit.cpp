#include "numerics/LinearFit.h"

#include <cmath>
#include <limits>

namespace {

/// Sums about a centre, which keeps the digits of values far from zero.
struct TMoments
{
    int count = 0;
    double xMean = 0.0;
    double yMean = 0.0;
    double xx = 0.0;
    double xy = 0.0;
    double yy = 0.0;
};

bool isUsed(double x, double y)
{
    return std::isfinite(x) && std::isfinite(y);
}

TMoments momentsOf(const QVector<double> &x, const QVector<double> &y, bool isCentred)
{
    TMoments sums;
    for (int i = 0; i < x.size(); ++i) {
        if (!isUsed(x.at(i), y.at(i)))
            continue;
        ++sums.count;
        sums.xMean += x.at(i);
        sums.yMean += y.at(i);
    }
    if (sums.count == 0)
        return sums;
    sums.xMean = isCentred ? sums.xMean / sums.count : 0.0;
    sums.yMean = isCentred ? sums.yMean / sums.count : 0.0;
    for (int i = 0; i < x.size(); ++i) {
        if (!isUsed(x.at(i), y.at(i)))
            continue;
        const double dx = x.at(i) - sums.xMean;
        const double dy = y.at(i) - sums.yMean;
        sums.xx += dx * dx;
        sums.xy += dx * dy;
        sums.yy += dy * dy;
    }
    return sums;
}

} // namespace

TLinearFit LinearFit::fit(const QVector<double> &x, const QVector<double> &y, TForm form)
{
    TLinearFit line;
    const int parameters = form == cLine ? 2 : 1;
    if (x.size() != y.size())
        return line;
    const TMoments sums = momentsOf(x, y, form == cLine);
    if (sums.count < parameters || !(sums.xx > 0.0) || !std::isfinite(sums.xx))
        return line;
    line.isValid = true;
    line.count = sums.count;
    line.slope = sums.xy / sums.xx;
    line.intercept = sums.yMean - line.slope * sums.xMean;
    double squares = 0.0;
    for (int i = 0; i < x.size(); ++i) {
        const bool used = isUsed(x.at(i), y.at(i));
        line.residuals.append(used ? y.at(i) - line.at(x.at(i)) : std::numeric_limits<double>::quiet_NaN());
        squares += used ? line.residuals.last() * line.residuals.last() : 0.0;
    }
    line.r2 = sums.yy > 0.0 ? 1.0 - squares / sums.yy : 1.0; // all on a level line
    if (sums.count > parameters)
        line.standardError = std::sqrt(squares / (sums.count - parameters));
    return line;
}
