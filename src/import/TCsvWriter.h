#pragma once

#include <QByteArray>
#include <QPair>
#include <QVector>

class QIODevice;

/// One y column of a CSV file. x may come in any order; of equal ones the last counts, and one that is NaN is left out.
struct TCsvSeries
{
    QVector<double> fX;
    QVector<double> fY;                      // as many as fX
    QVector<QPair<double, double>> fVisible; // pieces of x, ends included and in any order
};

/// Writes spectra as comma-separated text without a header: a line per x value that any of them has, in ascending
/// order, with x and a value of each.
///
/// A spectrum that has no point at an x, or none that is visible, reads "NaN" there; in the first and in the last line
/// it reads "0.0", so that every column spans the same range. Numbers have up to 17 digits, which read back to the same
/// double. Time is linear in what is written.
class TCsvWriter
{
public:
    /// False when the device takes no more. `isPadded`, where given, becomes true when "0.0" was written for a missing
    /// value; else it is left alone.
    static bool write(const QVector<TCsvSeries> &series, QIODevice *device, bool *isPadded = nullptr);

    /// Appends a number as a text stream of 17 digits writes it: the shorter of the plain and the exponent form,
    /// "nan", "inf", "-inf".
    static void appendNumber(QByteArray *text, double value);
};
