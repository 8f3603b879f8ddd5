#pragma once

#include <QtGlobal>

/// A view of a series that somebody else owns: pointer to the first value, stride in values (negative: the view runs
/// against the storage), count, and whether the series is stored in reverse. A null pointer or a count of 0 means that
/// nothing is available. The view is good as long as the series stays as it is.
template <class T>
struct T1DPlotData
{
    const T *data = nullptr;
    int step = 1;
    int count = 0;
    bool reversed = false;
    quint64 stamp = 0; // not 0: no other values ever get that number, so they need not be compared

    T1DPlotData() = default;
    T1DPlotData(const T *first, int number, int stride = 1, bool isReversed = false)
        : data(first)
        , step(stride)
        , count(number)
        , reversed(isReversed)
    {
    }

    bool isEmpty() const { return !data || count <= 0; }
    /// Value number i of the view, 0 <= i < count.
    T at(int i) const { return data[qptrdiff(i) * step]; }
};
