#include "plot/TAxisMap.h"
#include <cmath>

TAxisMap::TAxisMap(const TRanges &ranges, const TRange &scale, double from, double to, double gap)
    : fScale(scale)
{
    const TRanges visible = ranges.adjustTo(scale);
    const int count = visible.count();
    double span = 0.0;
    for (const TRange &piece : visible.toVector())
        span += piece.span();
    if (count == 0 || !(span > 0.0))
        return;
    const double length = to - from; // negative for an axis whose places run down
    const double usedGap = count > 1 ? std::min(gap, 0.5 * std::abs(length) / (count - 1)) : 0.0;
    const double step = std::copysign(usedGap, length);
    const double density = (length - step * (count - 1)) / span;
    double place = from;
    for (int i = 0; i < count; ++i) {
        const TRange &values = visible.at(scale.isReversed() ? count - 1 - i : i);
        const double end = i == count - 1 ? to : place + density * values.span();
        const TRange directed = values.inDirectionOf(scale);
        fPieces.append({values, TRange(place, end).sorted(), TLinearMap::through(directed.a, directed.b, place, end)});
        place = end + step;
    }
    if (scale.isReversed())
        std::reverse(fPieces.begin(), fPieces.end());
}

bool TAxisMap::toPlace(double value, double &place) const
{
    if (fPieces.isEmpty() || !std::isfinite(value))
        return false;
    const TPiece *found = nullptr;
    if (value < fScale.lo())
        found = &fPieces.first();
    else if (value > fScale.hi())
        found = &fPieces.last();
    for (int i = 0; i < fPieces.size() && !found; ++i) {
        if (fPieces.at(i).values.contains(value))
            found = &fPieces.at(i);
    }
    if (!found)
        return false;
    place = found->map(value);
    return true;
}

double TAxisMap::toValue(double place) const
{
    if (fPieces.isEmpty())
        return fScale.a;
    const TPiece *nearest = &fPieces.first();
    double nearestDistance = HUGE_VAL;
    for (const TPiece &piece : fPieces) {
        const double distance = std::max({0.0, piece.places.a - place, place - piece.places.b});
        if (distance < nearestDistance) {
            nearest = &piece;
            nearestDistance = distance;
        }
    }
    const bool isOutside = nearestDistance > 0.0;
    const double lowest = std::min(fPieces.first().places.a, fPieces.last().places.a);
    const double highest = std::max(fPieces.first().places.b, fPieces.last().places.b);
    if (isOutside && place > lowest && place < highest) // in a gap
        return nearest->map.inverse(qBound(nearest->places.a, place, nearest->places.b));
    return nearest->map.inverse(place);
}

double TAxisMap::density() const
{
    return fPieces.isEmpty() ? 0.0 : std::abs(fPieces.first().map.factor);
}
