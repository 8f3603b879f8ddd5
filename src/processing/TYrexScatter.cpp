#include "TYrexScatter.h"

#include "TYrexProcIds.h"
#include "TYrexProcSteps.h"
#include "TYrexSpectrum.h"

#include <QCoreApplication>
#include <QHash>
#include <algorithm>
#include <cmath>
#include <lapacke.h>
#include <limits>
#include <vector>

namespace {

constexpr int cFitColumns = 32;        // spectra fitted at a time, so that no second copy of the stack is needed
constexpr int cMeanBlock = 512;        // points summed at a time; the sums stay in the nearest cache
constexpr int cMedianBlock = 16;       // points gathered at a time: two cache lines of every spectrum
constexpr int cParallelFrom = 1 << 22; // values to sum that are worth waiting for other threads

constexpr int cFewestPoints = 2;                                       // one value has nothing to be compared by
constexpr double cNoFactor = std::numeric_limits<double>::quiet_NaN(); // of a spectrum that was compared with none

int pointsOf(const TYrexSpectrum &spectrum)
{
    return qMin(spectrum.pointCount(), spectrum.values().size());
}

/// The spectra of a stack that can be compared, and the others.
struct TStack
{
    QVector<TYrexSpectrum *> fSpectra;
    QVector<TYrexSpectrum *> fOthers;
    std::vector<const double *> fRows;
    int fPoints = 0;

    explicit TStack(const QVector<TYrexSpectrum *> &spectra);
    int count() const { return fSpectra.size(); }
    QString remark() const;

private:
    static int usualPoints(const QVector<TYrexSpectrum *> &spectra);
};

TStack::TStack(const QVector<TYrexSpectrum *> &spectra)
    : fPoints(usualPoints(spectra))
{
    for (TYrexSpectrum *spectrum : spectra) {
        if (!spectrum)
            continue;
        if (fPoints == 0 || pointsOf(*spectrum) != fPoints) {
            fOthers.append(spectrum);
            continue;
        }
        fSpectra.append(spectrum);
        fRows.push_back(spectrum->values().constData());
    }
}

/// 0 when no spectrum can be compared.
int TStack::usualPoints(const QVector<TYrexSpectrum *> &spectra)
{
    QHash<int, int> frequencies;
    for (const TYrexSpectrum *spectrum : spectra) {
        if (spectrum && pointsOf(*spectrum) >= cFewestPoints)
            ++frequencies[pointsOf(*spectrum)];
    }
    int usual = 0;
    for (const TYrexSpectrum *spectrum : spectra) { // in their order, so that the first of equals stays
        const int points = spectrum ? pointsOf(*spectrum) : 0;
        if (frequencies.value(points) > frequencies.value(usual))
            usual = points;
    }
    return usual;
}

QString TStack::remark() const
{
    if (fOthers.isEmpty())
        return QString();
    const QString shares =
        QCoreApplication::translate("TYrexScatter", "%1 of %2 spectra are left as they are").arg(fOthers.size());
    const QString why = fPoints == 0 ? QCoreApplication::translate("TYrexScatter", "they have less than two points")
                                     : QCoreApplication::translate("TYrexScatter", "they do not have the %1 points of "
                                                                                   "the others")
                                           .arg(fPoints);
    return shares.arg(fOthers.size() + count()) + ": " + why;
}

/// The mean over the stack. Every point is summed by one thread in the order of the spectra, so that the number of
/// threads changes no bit.
QVector<double> meanSpectrum(const TStack &stack, bool parallel)
{
    QVector<double> mean(stack.fPoints, 0.0);
    double *sums = mean.data();
    const int blocks = (stack.fPoints + cMeanBlock - 1) / cMeanBlock;
#pragma omp parallel for schedule(static) if (parallel && double(stack.count()) * stack.fPoints > cParallelFrom)
    for (int block = 0; block < blocks; ++block) {
        const int from = block * cMeanBlock;
        const int to = qMin(from + cMeanBlock, stack.fPoints);
        for (const double *row : stack.fRows) {
            for (int i = from; i < to; ++i)
                sums[i] += row[i];
        }
        for (int i = from; i < to; ++i)
            sums[i] /= stack.count();
    }
    return mean;
}

/// The median of the values, rounded to single precision; reorders them.
double roundedMedian(double *values, int count)
{
    double *end = std::remove_if(values, values + count, [](double value) { return std::isnan(value); });
    if (end == values)
        return std::numeric_limits<double>::quiet_NaN();
    double *middle = values + (end - values) / 2;
    std::nth_element(values, middle, end);
    if ((end - values) % 2 == 1)
        return double(float(*middle));
    return double(float((*std::max_element(values, middle) + *middle) / 2.0));
}

QVector<double> medianSpectrum(const TStack &stack)
{
    const int count = stack.count();
    QVector<double> median(stack.fPoints);
    std::vector<double> columns(size_t(cMedianBlock) * size_t(count));
    for (int from = 0; from < stack.fPoints; from += cMedianBlock) {
        const int width = qMin(cMedianBlock, stack.fPoints - from);
        for (int s = 0; s < count; ++s) {
            const double *row = stack.fRows[size_t(s)] + from;
            for (int i = 0; i < width; ++i)
                columns[size_t(i) * size_t(count) + size_t(s)] = row[i];
        }
        for (int i = 0; i < width; ++i)
            median[from + i] = roundedMedian(columns.data() + size_t(i) * size_t(count), count);
    }
    return median;
}

/// The least squares fits of a stack to one regressor, a group of spectra at a time.
class TLineFit
{
public:
    explicit TLineFit(const QVector<double> &regressor)
        : fPoints(regressor.size())
        , fDesign(2 * size_t(fPoints), 1.0)
    {
        std::copy(regressor.begin(), regressor.end(), fDesign.begin() + fPoints);
    }

    /// Fits `count` columns of the point count's length; the first two values of a column become intercept and slope.
    bool solve(double *columns, int count)
    {
        std::vector<double> design = fDesign; // overwritten by its factors
        double wanted = 0.0;
        if (run(design.data(), columns, count, &wanted, -1) != 0)
            return false;
        const int size = qMax(1, int(wanted));
        fWork.resize(size_t(size));
        return run(design.data(), columns, count, fWork.data(), size) == 0;
    }

private:
    int run(double *design, double *columns, int count, double *work, int size) const
    {
        // the variant that leaves NaNs to the arithmetic; the other one refuses the whole group for one of them
        return LAPACKE_dgels_work(LAPACK_COL_MAJOR, 'N', fPoints, 2, count, design, fPoints, columns, fPoints, work,
                                  size);
    }

    int fPoints;
    std::vector<double> fDesign;
    std::vector<double> fWork;
};

/// The median quotient of a spectrum by the reference.
double quotient(const double *y, const QVector<double> &reference, std::vector<double> &scratch)
{
    const int n = reference.size();
    for (int i = 0; i < n; ++i)
        scratch[size_t(i)] = reference.at(i) == 0.0 ? 1.0 : y[i] / reference.at(i);
    return roundedMedian(scratch.data(), n);
}

} // namespace

int TYrexScatter::meanAndDeviation(int count, const double *values, double &mean, double &deviation)
{
    constexpr int cNoValues = 2;
    if (count <= 0)
        return cNoValues;
    // sums of differences from the first value: equal values must not get a deviation from rounding
    double sum = 0.0;
    for (int i = 0; i < count; ++i)
        sum += values[i] - values[0];
    const double centre = values[0] + sum / count;
    double squares = 0.0;
    for (int i = 0; i < count; ++i)
        squares += (values[i] - centre) * (values[i] - centre);
    mean = centre;
    deviation = count > 1 ? std::sqrt(squares / (count - 1)) : 0.0;
    return 0;
}

void TYrexScatter::snv(TYrexSpectrum &spectrum, const QVariantMap &)
{
    const int n = spectrum.pointCount();
    double *y = spectrum.data();
    double mean = 0.0;
    double deviation = 0.0;
    meanAndDeviation(n, y, mean, deviation);
    const double factor = deviation == 0.0 ? 0.0 : 1.0 / deviation;
    for (int i = 0; i < n; ++i)
        y[i] = (y[i] - mean) * factor;
    TYrexProcSteps::labelArbitrary(spectrum);
}

void TYrexScatter::mscApply(TYrexSpectrum &spectrum, const QVariantMap &action)
{
    if (spectrum.mscIntercept() == 0.0 && spectrum.mscSlope() == 0.0)
        return;
    const int mode = action.value(QStringLiteral("msccorrmode")).toInt();
    const double offset = mode == cScatterAmplification ? 0.0 : spectrum.mscIntercept();
    const double factor = mode == cScatterOffset ? 1.0 : 1.0 / spectrum.mscSlope();
    if (mode == cScatterFull || mode == cScatterOffset || mode == cScatterAmplification) {
        double *y = spectrum.data();
        for (int i = 0; i < spectrum.pointCount(); ++i)
            y[i] = (y[i] - offset) * factor;
    }
    TYrexProcSteps::labelArbitrary(spectrum);
}

void TYrexScatter::pqnApply(TYrexSpectrum &spectrum, const QVariantMap &)
{
    if (std::isnan(spectrum.pqnFactor()))
        return;
    const double factor = 1.0 / spectrum.pqnFactor();
    double *y = spectrum.data();
    for (int i = 0; i < spectrum.pointCount(); ++i)
        y[i] *= factor;
    TYrexProcSteps::labelArbitrary(spectrum);
}

QString TYrexScatter::mscPrepass(const QVector<TYrexSpectrum *> &spectra)
{
    const TStack stack(spectra);
    for (TYrexSpectrum *other : stack.fOthers)
        other->setMscCoefficients(0.0, 0.0);
    if (stack.fPoints == 0)
        return stack.remark();
    TLineFit fit(meanSpectrum(stack, false));
    const size_t points = size_t(stack.fPoints);
    std::vector<double> columns(points * size_t(qMin(cFitColumns, stack.count())));
    for (int from = 0; from < stack.count(); from += cFitColumns) {
        const int width = qMin(cFitColumns, stack.count() - from);
        for (int s = 0; s < width; ++s)
            std::copy_n(stack.fRows[size_t(from + s)], points, columns.data() + size_t(s) * points);
        if (!fit.solve(columns.data(), width))
            return stack.remark(); // the regressor decides, so already the first group fails
        for (int s = 0; s < width; ++s) {
            const double *line = columns.data() + size_t(s) * points;
            stack.fSpectra.at(from + s)->setMscCoefficients(line[0], line[1]);
        }
    }
    return stack.remark();
}

QString TYrexScatter::pqnPrepass(const QVector<TYrexSpectrum *> &spectra, const QVariantMap &action)
{
    const TStack stack(spectra);
    for (TYrexSpectrum *other : stack.fOthers)
        other->setPqnFactor(cNoFactor);
    const int mode = action.value(QStringLiteral("normpqnreference")).toInt();
    if (stack.fPoints == 0 || (mode != cQuotientMean && mode != cQuotientMedian))
        return stack.remark();
    const QVector<double> reference = mode == cQuotientMean ? meanSpectrum(stack, true) : medianSpectrum(stack);
    std::vector<double> scratch(size_t(stack.fPoints));
    for (int s = 0; s < stack.count(); ++s)
        stack.fSpectra.at(s)->setPqnFactor(quotient(stack.fRows[size_t(s)], reference, scratch));
    return stack.remark();
}
