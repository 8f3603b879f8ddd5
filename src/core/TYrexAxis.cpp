#include "TYrexAxis.h"

#include "TYrexSpectrum.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>

namespace {

constexpr double cSameWithin = 0.1; // of a step
constexpr int cDigits = 4;          // of a distance that users read

QString words(const char *text)
{
    return QCoreApplication::translate("TYrexAxis", text);
}

} // namespace

TYrexAxis::TYrexAxis(const TYrexSpectrum &spectrum)
    : fFirst(spectrum.firstX())
    , fLast(spectrum.lastX())
    , fCount(spectrum.pointCount())
    , fUnit(spectrum.origXUnits())
{
}

double TYrexAxis::step() const
{
    return fCount > 1 ? std::fabs(fLast - fFirst) / (fCount - 1) : 0.0;
}

double TYrexAxis::farthestFrom(const TYrexAxis &other) const
{
    // of evenly spaced points those at one of the ends are farthest apart
    return std::max(std::fabs(fFirst - other.fFirst), std::fabs(fLast - other.fLast));
}

bool TYrexAxis::isSameAs(const TYrexAxis &other) const
{
    return fCount == other.fCount && fUnit == other.fUnit && std::isfinite(step()) &&
           farthestFrom(other) <= cSameWithin * std::min(step(), other.step());
}

QString TYrexAxis::difference(const QVector<TYrexAxis> &axes, const TYrexAxis &reference)
{
    QString ofUnits;
    QString ofPlaces;
    double farthest = -1.0;
    for (const TYrexAxis &axis : axes) {
        if (axis.fCount != reference.fCount)
            return words("the numbers of points differ, %1 and %2").arg(axis.fCount).arg(reference.fCount);
        if (axis.fUnit != reference.fUnit) {
            ofUnits = words("the x units differ, %1 and %2")
                          .arg(yrexUnitDisplayName(axis.fUnit), yrexUnitDisplayName(reference.fUnit));
        } else if (!axis.isSameAs(reference) && !(axis.farthestFrom(reference) <= farthest)) {
            farthest = axis.farthestFrom(reference);
            ofPlaces = words("the x axes differ by up to %1 %2")
                           .arg(QString::number(farthest, 'g', cDigits), yrexUnitShortName(reference.fUnit))
                           .trimmed();
        }
    }
    return ofUnits.isEmpty() ? ofPlaces : ofUnits;
}
