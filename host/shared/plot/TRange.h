#pragma once

#include <QtGlobal>
#include <algorithm>
#include <cmath>

/// Two limits on an axis, in the axis' own units. `a` stands at the left or bottom end, `b` at the right or top one, so
/// that a > b is a reversed axis (wavenumbers run from high to low).
class TRange
{
public:
    double a = 0.0;
    double b = 0.0;

    TRange() = default;
    TRange(double from, double to)
        : a(from)
        , b(to)
    {
    }

    void setRange(double from, double to)
    {
        a = from;
        b = to;
    }
    double lo() const { return std::min(a, b); }
    double hi() const { return std::max(a, b); }
    double span() const { return hi() - lo(); }
    bool isReversed() const { return a > b; }
    bool isFinite() const { return std::isfinite(a) && std::isfinite(b); }
    /// Limits included.
    bool contains(double value) const { return value >= lo() && value <= hi(); }
    /// The same limits in ascending order.
    TRange sorted() const { return TRange(lo(), hi()); }
    /// These limits in the direction of another range.
    TRange inDirectionOf(const TRange &other) const { return other.isReversed() ? TRange(hi(), lo()) : sorted(); }

    /// How this visible range stands to a region, on sorted limits: 0 the region lies inside; 5 this lies inside the
    /// region and is not equal to it; 2 the region begins below and ends inside; 3 it begins inside and ends above;
    /// 1 it lies below, 4 above. A single common point counts as 1 or 4.
    int compare(const TRange &region) const;

    bool operator==(const TRange &other) const { return a == other.a && b == other.b; }
    bool operator!=(const TRange &other) const { return !(*this == other); }
};

Q_DECLARE_TYPEINFO(TRange, Q_MOVABLE_TYPE);
