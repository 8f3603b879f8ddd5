#pragma once

/// A straight line from one coordinate to another.
struct TLinearMap
{
    double factor = 1.0;
    double shift = 0.0;

    double operator()(double value) const { return factor * value + shift; }
    double inverse(double mapped) const { return (mapped - shift) / factor; }
    /// This map first, then the other.
    TLinearMap then(const TLinearMap &other) const { return {other.factor * factor, other(shift)}; }
    /// The map that takes `from` to `mappedFrom` and `to` to `mappedTo`; from and to must differ.
    static TLinearMap through(double from, double to, double mappedFrom, double mappedTo)
    {
        const double slope = (mappedTo - mappedFrom) / (to - from);
        return {slope, mappedFrom - slope * from};
    }
    bool operator==(const TLinearMap &other) const { return factor == other.factor && shift == other.shift; }
};
