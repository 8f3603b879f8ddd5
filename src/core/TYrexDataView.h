#pragma once

#include <QVector>

/// A view on a cached array of a data object, valid until the next query of the same kind.
struct TYrexDataView
{
    const double *values = nullptr;
    int step = -1; // 1 for a valid view
    int count = 0;
    bool descending = false; // an x array that runs from high to low
    quint64 stamp = 0;       // not 0: no other values ever get that number

    TYrexDataView() = default;
    /// The view of an x array.
    static TYrexDataView ofAxis(const QVector<double> &array)
    {
        TYrexDataView view(array);
        view.descending = !array.isEmpty() && array.first() > array.last();
        return view;
    }
    explicit TYrexDataView(const QVector<double> &array)
        : values(array.constData())
        , step(1)
        , count(array.size())
    {
    }
    bool isValid() const { return step > 0; }
};
