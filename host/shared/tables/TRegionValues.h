#pragma once

#include "contexts/TDARegion.h"

#include <QColor>
#include <QString>
#include <QUuid>
#include <QVector>

class TCanvasItem;

/// What the regions of an item yield: a row for each visible spectrum, in display order.
class TRegionValues
{
public:
    enum TSource { cSeriesValue, cNumber, cParameter };
    /// What stands for a spectrum on the horizontal axis.
    struct TX
    {
        TSource fSource = cSeriesValue;
        QString fParameter; // programmatic name
    };
    struct TRow
    {
        int fIndex = 0; // of the spectrum
        QString fTitle;
        QColor fColor;
        double fX = 0.0;         // NaN for none
        QVector<double> fValues; // one for each region; NaN where it yields nothing
    };

    TRegionValues() = default;
    /// Without an item, and for one that keeps no regions, there is nothing. With `divisor`, the id of a region, all
    /// other values are divided by its own.
    TRegionValues(TCanvasItem *item, const TX &x, const QUuid &divisor);

    const QVector<TRow> &rows() const { return fRows; }
    /// With limits in the unit that the item shows, in the direction of its axis.
    const QVector<TDARegion> &regions() const { return fRegions; }
    /// Place of the region by which the others are divided; -1 for none.
    int divisor() const { return fDivisor; }
    /// "A 520..540", "A / B 520..540".
    QString header(int region) const;
    /// The same with a point as decimal sign, whatever the user's.
    QString plainHeader(int region) const;
    QVector<double> xs() const;
    QVector<double> values(int region) const;

private:
    QString headerWith(int region, const QString &from, const QString &to) const;
    void addRow(TCanvasItem &item, int index, const TX &x);

    QVector<TRow> fRows;
    QVector<TDARegion> fRegions;
    int fDivisor = -1;
};
