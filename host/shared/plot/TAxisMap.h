#pragma once

#include "plot/TLinearMap.h"
#include "plot/TRanges.h"
#include <QVector>

/// From axis values to places along the axis and back, hidden ranges left out: the visible pieces share the length in
/// proportion to their spans, with a gap between them.
class TAxisMap
{
public:
    struct TPiece
    {
        TRange values; // ascending
        TRange places; // ascending
        TLinearMap map;
    };

    TAxisMap() = default;
    /// `ranges` are the visible pieces of the axis, `scale` what is shown of it; the scale's `a` comes to `from`, its
    /// `b` to `to`. `gap` in the unit of the places; it shrinks when it would take more than half of the length.
    TAxisMap(const TRanges &ranges, const TRange &scale, double from, double to, double gap);

    /// Ascending in values; empty when nothing of the scale is visible.
    const QVector<TPiece> &pieces() const { return fPieces; }
    /// False for a hidden value and for one that is not finite. Values outside the scale go on along the next piece.
    bool toPlace(double value, double &place) const;
    /// A place in a gap gives the limit next to it; without any piece the scale's first limit.
    double toValue(double place) const;
    /// Places per unit of the axis, never negative; 0 without any piece.
    double density() const;

private:
    TRange fScale;
    QVector<TPiece> fPieces;
};
