#pragma once

#include "canvas/TShownSeries.h"

#include <QByteArray>

/// The numbers of curves as a table for other programs: x, then a column per curve. Curves that share no x axis leave
/// cells empty. One header line with titles and units; 17 digits, which read back to the same double.
class TNumberTable
{
public:
    explicit TNumberTable(const QVector<TShownSeries> &series);

    bool isEmpty() const { return fSeries.isEmpty(); }
    /// Of all curves together.
    int pointCount() const;
    /// The sign before the decimals; a point without this.
    void setDecimalSign(char sign) { fSign = sign; }
    /// Separated by tabs, a line each.
    QByteArray text() const;
    /// A table, with signs escaped.
    QByteArray html() const;

private:
    QVector<QByteArray> header() const;
    QVector<QVector<QByteArray>> rows() const;
    QVector<double> positions() const;
    QByteArray number(double value) const;

    QVector<TShownSeries> fSeries;
    char fSign = '.';
};
