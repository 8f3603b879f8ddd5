#include "TSpcAxis.h"

#include "TBinaryFile.h"
#include "TEvenAxis.h"
#include "TSpcHeader.h"
#include "TSpcValues.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double cMaxGridPerPoint = 64.0; // a grid finer than that comes from an array that was misread

/// Whether the values are finite and run strictly in one direction.
bool isStrictlyMonotonic(const QVector<double> &x)
{
    const bool up = x.last() > x.first();
    for (int i = 0; i < x.size(); ++i) {
        if (!std::isfinite(x[i]) || (i > 0 && !(up ? x[i] > x[i - 1] : x[i] < x[i - 1])))
            return false;
    }
    return true;
}

QVector<double> xArray(const TBinaryFile &file, const TSpcValueFormat &format, int points)
{
    QVector<double> x(points);
    readValues(file, TSpcHeader::cNewSize, format, x.data(), points);
    return x;
}

/// Many writers store the X array as floats though the exponent of the file tells of integers.
QVector<double> xArrayAsFloats(const TBinaryFile &file, int points)
{
    return xArray(file, {TSpcHeader::cFloatExponent, false, cSpcNew}, points);
}

} // namespace

/// Takes an array over when it makes sense: finite, strictly monotonic, no finer than a grid can be.
bool TSpcAxis::take(QVector<double> *x, const TSpcHeader &header)
{
    if (x->size() < 2 || !isStrictlyMonotonic(*x))
        return false;
    const double start = std::min(header.fFirstX, header.fLastX);
    const double end = std::max(header.fFirstX, header.fLastX);
    const double step = smallestStep(*x);
    const double count = std::round((end - start) / step);
    if (!(count <= std::min(cMaxGridPerPoint * x->size(), TSpcHeader::cMaxPoints))) // NaN as well
        return false;
    fDescends = x->first() > x->last();
    fDownwards = header.fFirstX > header.fLastX;
    if (fDescends)
        std::reverse(x->begin(), x->end());
    fGrid = {start, step, int(count)};
    fX.swap(*x);
    return true;
}

TSpcAxis TSpcAxis::read(const TBinaryFile &file, const TSpcHeader &header, int points)
{
    TSpcAxis axis;
    if (!header.hasXArray())
        return axis;
    const TSpcValueFormat format = TSpcValueFormat::ofXArray(header);
    axis.fReading = cUnusable;
    if (!file.has(TSpcHeader::cNewSize, qint64(points) * format.width()))
        return axis;
    QVector<double> x = xArray(file, format, points);
    axis.fReading = cByExponent;
    if (axis.take(&x, header))
        return axis;
    x = xArrayAsFloats(file, points);
    axis.fReading = axis.take(&x, header) ? cAsFloats : cUnusable;
    return axis;
}

void TSpcAxis::resample(QVector<double> *y) const
{
    if (fX.isEmpty())
        return;
    if (fDescends)
        std::reverse(y->begin(), y->end());
    if (isResampled(fX.size()))
        resampleMonotoneCubic(fX, *y, fGrid);
    if (fDownwards)
        std::reverse(y->begin(), y->end());
}
