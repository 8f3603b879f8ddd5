#pragma once

#include "data/T1DPlotData.h"
#include "plot/TLinearMap.h"
#include <QPointF>
#include <QVector>

/// Reduces a dense curve to what its pixels can show: of each column the first, lowest, highest and last point.
///
/// A polyline through these points covers the same pixels as the whole curve when the columns are the device's pixel
/// columns or a part of them. Reference: U. Jugel, Z. Jerzak, G. Hackenbroich, V. Markl, Proc. VLDB Endow. 7 (2014)
/// 797-808, doi 10.14778/2732951.2732953. Departs from it: the curve may run in either direction of x, and values that
/// are not finite part it into polylines.
class TCurveReducer
{
public:
    static constexpr int cBreak = -1; // among indices: the polyline ends here
    static constexpr int cKept = 4;   // columns with that many points or fewer keep them all

    /// Views of equal length; the shorter one counts.
    TCurveReducer(const T1DPlotData<double> &x, const T1DPlotData<double> &y);

    int count() const { return fCount; }
    /// Whether x never turns back, so that the curve is a function of it. Looks at every x.
    bool isMonotonic() const;

    /// Indices of the points that show, in the order of the curve. `column` maps x to columns of width 1; points
    /// outside [from, to] in columns are left out but for one beyond each end, so that lines reach the border. O(n); of
    /// a monotonic curve the part outside is found by bisection.
    QVector<int> indices(const TLinearMap &column, double from, double to, bool monotonic) const;

    /// The polylines of these indices under the two maps. Mapped values beyond 1e9 are held there.
    QVector<QVector<QPointF>> polylines(const QVector<int> &indices, const TLinearMap &mapX,
                                        const TLinearMap &mapY) const;

private:
    struct TSeries
    {
        const double *first;
        qptrdiff step;
        double at(int i) const { return first[i * step]; }
    };
    static TSeries series(const T1DPlotData<double> &data);
    int columnEnd(int first, int end, const TLinearMap &column) const;
    bool findExtremes(int first, int end, int &lowest, int &highest) const;
    bool isPoint(int i) const;
    void appendColumn(QVector<int> &kept, int first, int lowest, int highest, int last) const;

    TSeries fX;
    TSeries fY;
    int fCount;
};
