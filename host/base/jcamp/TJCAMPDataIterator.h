#pragma once

#include "jcamp/TJCAMPTableDecoder.h"

#include <QByteArray>
#include <QString>
#include <QVector>

/// Walks over the values of a data table in file order: (X++(Y..Y)) in AFFN, PAC, SQZ, DIF and DUP forms, mixed as they
/// like, and (XY..XY). "?" and "*" give NaN. Checks that fail are noted; the values of the file stand.
class TJCAMPDataIterator
{
public:
    explicit TJCAMPDataIterator(const TJCAMPTable &table);

    /// Goes to the first or next value; false when there is none, or when the announced number was reached.
    bool first();
    bool next();
    /// The value at hand as it is written, to be multiplied by yFactor().
    double y() const;
    /// Its place: FIRSTX + i * (LASTX - FIRSTX) / (NPOINTS - 1), of a pair its own X times XFACTOR.
    double x() const;
    double yFactor() const { return fTable.fYFactor; }

    /// Goes back to the start and reads up to `count` values at once, with the factor applied; with `x` their places
    /// too. Returns how many there were; the rest of the arrays is untouched.
    int readAll(double *y, int count, double *x = nullptr);

    /// The first check that failed so far, as "line 113: expected ..., found ...", and how many there were. Empty when
    /// all went well.
    QString problem() const;
    /// The forms met so far, as "SQZ, DIF, DUP".
    QString formsFound() const;
    bool isPairs() const { return fTable.isPairs(); }

private:
    bool fill();
    double place(qint64 point, double pairX) const;

    TJCAMPTable fTable;
    TJCAMPTableDecoder fDecoder;
    QVector<double> fX;
    QVector<double> fY;
    int fIndex = 0;
    int fFilled = 0;
    qint64 fBefore = 0; // values in front of the buffered ones
};
