#pragma once

#include "plot/TCurveReducer.h"
#include <QHash>
#include <QList>
#include <QSharedPointer>

/// A curve as it was drawn: its polylines in device pixels, and whether x never turns back.
struct TReducedCurve
{
    QVector<QVector<QPointF>> lines;
    bool monotonic = true;
};

/// Keeps reduced curves from draw to draw. An entry is found by a checksum over every value and by the maps, not by the
/// place of the data in memory: series may be made anew for each draw, and data may be changed in place. Series with a
/// stamp go by that.
class TCurveCache
{
public:
    /// The curve reduced to columns of that width in the mapped unit, for the part between `from` and `to` there.
    QSharedPointer<const TReducedCurve> reduced(const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                                                const TLinearMap &mapX, const TLinearMap &mapY, double from, double to,
                                                double columnWidth);

    /// The same without keeping anything.
    static QSharedPointer<const TReducedCurve> reduce(const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                                                      const TLinearMap &mapX, const TLinearMap &mapY, double from,
                                                      double to, double columnWidth);

private:
    struct TEntry
    {
        quint64 checksum;
        int count;
        TLinearMap mapX;
        TLinearMap mapY;
        double from;
        double to;
        double columnWidth;
        QSharedPointer<const TReducedCurve> curve;

        bool isFor(const TEntry &other) const;
    };
    static quint64 checksum(const T1DPlotData<double> &data, int count);
    bool isMonotonic(const T1DPlotData<double> &x, const TCurveReducer &reducer);
    static QSharedPointer<const TReducedCurve> reduce(const TCurveReducer &reducer, bool monotonic,
                                                      const TLinearMap &mapX, const TLinearMap &mapY, double from,
                                                      double to, double columnWidth);

    QList<TEntry> fEntries; // the one used last stands last
    int fPoints = 0;
    QHash<quint64, bool> fMonotonic; // by stamp of x
};
