#include "TYrexIntegralCurve.h"

#include "TYrexUnits.h"
#include "plot/TBasePlotter.h"

#include <cmath>

namespace {

constexpr double cMaxAbsorbance = 4.0;
constexpr double cLeastWay = 0.5; // canvas units that a line takes at least: dense samples make no dense lines

/// The unit in which the samples stand at even steps; lengths are taken in micrometres.
int gridUnitOf(int storedUnit)
{
    return storedUnit == cUnitNanometers ? int(cUnitMicrometers) : storedUnit;
}

} // namespace

TYrexIntegralCurve::TYrexIntegralCurve(const TSource &source)
    : fSource(source)
    , fGridUnit(gridUnitOf(source.storedUnit))
    , fGrid(TRange(yrexConvertX(source.xRange.a, source.storedUnit, fGridUnit),
                   yrexConvertX(source.xRange.b, source.storedUnit, fGridUnit))
                .sorted())
{
    if (source.y.count > 1)
        fStep = fGrid.span() / (source.y.count - 1);
}

double TYrexIntegralCurve::summed(double sample, int yUnits)
{
    if (yUnits != cUnitTransmittance && yUnits != cUnitPercentTransmittance)
        return std::isfinite(sample) ? sample : 0.0;
    if (!(sample > 0.0))
        return cMaxAbsorbance;
    const double shift = yUnits == cUnitPercentTransmittance ? 2.0 : 0.0;
    return qBound(0.0, shift - std::log10(sample), cMaxAbsorbance);
}

void TYrexIntegralCurve::build(const TRange &region, double value, const TBand &band,
                               const QVector<TAxisMap::TPiece> &pieces, const QRectF &curves)
{
    fLines.clear();
    fRect = QRectF();
    const int count = fSource.y.count;
    const TRange bounds =
        TRange(yrexConvertX(region.a, fSource.xUnits, fGridUnit), yrexConvertX(region.b, fSource.xUnits, fGridUnit))
            .sorted();
    if (!(fStep > 0.0) || !bounds.isFinite())
        return;
    const auto sampleAt = [&](double way) { return std::round(qBound(-2.0 * count, way / fStep, 2.0 * count)); };
    const double end = std::min(sampleAt(bounds.b - fGrid.a), count - 1.0);
    const double start = std::max(count - 1.0 - sampleAt(fGrid.b - bounds.a), 0.0);
    if (end - start < 2.0)
        return;
    const double scale = value == 0.0 ? band.height * 0.5 : band.height / std::abs(2.0 * value);
    for (const TAxisMap::TPiece &piece : pieces) {
        const int outcome = piece.values.compare(region);
        if (outcome == 1 || outcome == 4)
            continue;
        const QRectF clip(piece.places.a, curves.top(), piece.places.span(), curves.height());
        appendPiece(piece, TRange(start, end), scale, band.base, clip);
    }
    for (const QLineF &line : qAsConst(fLines)) {
        const QRectF box = QRectF(line.p1(), line.p2()).normalized();
        fRect = fRect.isNull()
                    ? box
                    : QRectF(QPointF(std::min(fRect.left(), box.left()), std::min(fRect.top(), box.top())),
                             QPointF(std::max(fRect.right(), box.right()), std::max(fRect.bottom(), box.bottom())));
    }
    if (!fRect.isNull())
        fRect &= curves;
}

/// The sum starts anew in every piece, but runs over all samples of the region: what is hidden counts as well.
void TYrexIntegralCurve::appendPiece(const TAxisMap::TPiece &piece, const TRange &samples, double scale, double base,
                                     const QRectF &clip)
{
    const int start = int(samples.a);
    const int end = int(samples.b);
    const bool isDown =
        fSource.storedUnit == cUnitWavenumber && (fSource.y.reversed || fSource.xUnits == cUnitWavenumber);
    const int way = isDown ? -1 : 1;
    const int first = isDown ? end : start;
    const int last = isDown ? start : end;
    double sum = 0.0;
    const auto shownX = [&](int i) { return yrexConvertX(fGrid.a + i * fStep, fGridUnit, fSource.xUnits); };
    const auto place = [&](double x) { return QPointF(piece.map(x), base - sum * scale); };
    QPointF previous = place(shownX(first));
    for (int i = first + way; i != last + way; i += way) {
        sum += summed(fSource.y.at(i), fSource.yUnits);
        const double x = shownX(i);
        const QPointF pos = place(x);
        if (!piece.values.contains(x)) {
            previous = pos;
            continue;
        }
        if (i != last && std::abs(pos.x() - previous.x()) < cLeastWay)
            continue;
        TBasePlotter::appendCorrectedLine(fLines, previous, pos, clip);
        previous = pos;
    }
}
