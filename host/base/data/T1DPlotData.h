#pragma once

/// A view of a series of values that somebody else owns: first value, stride in values, count, and whether the series
/// is stored in reverse, its logical first value last in memory. A null pointer or a count of 0 means that nothing is
/// available.
template <class T>
class T1DPlotData
{
public:
    T1DPlotData() = default;
    T1DPlotData(const T *values, int count, int stride = 1, bool reversed = false)
        : fValues(values)
        , fCount(values && count > 0 ? count : 0)
        , fStride(stride)
        , fReversed(reversed)
    {
    }

    bool isEmpty() const { return fCount == 0; }
    /// The value lowest in memory, whatever the order; null when empty by construction.
    const T *values() const { return fValues; }
    int count() const { return fCount; }
    int stride() const { return fStride; }
    bool isReversed() const { return fReversed; }

    /// The value at a logical index in [0, count).
    const T &operator[](int index) const
    {
        const long position = fReversed ? fCount - 1 - index : index;
        return fValues[position * fStride];
    }
    /// The same values in the other order.
    T1DPlotData reversed() const { return T1DPlotData(fValues, fCount, fStride, !fReversed); }

private:
    const T *fValues = nullptr;
    int fCount = 0;
    int fStride = 1;
    bool fReversed = false;
};
