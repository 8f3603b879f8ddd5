#pragma once

#include <QByteArray>
#include <QString>
#include <limits>

/// A table of data and what its block says of it.
struct TJCAMPTable
{
    QByteArray fText;  // the whole file, shared
    qint64 fBegin = 0; // first byte behind "(X++(Y..Y))"
    qint64 fEnd = 0;
    bool fIsPairs = false;
    bool fDecimalComma = false;
    double fFirstX = 0; // real values, factors applied
    double fLastX = 0;
    double fXFactor = 1;
    double fYFactor = 1;
    int fPoints = -1; // as announced; -1 when it is not known
    bool fCheckX = false;
};

/// Decodes the ordinates of a table piece by piece, without copying its text.
class TJCAMPTableDecoder
{
public:
    explicit TJCAMPTableDecoder(const TJCAMPTable &table);

    void rewind();
    /// Decodes up to `count` further values, without factors; with `x` (pairs) their X as well. Returns how many; less
    /// than `count` at the end of the table only.
    int decode(double *y, double *x, int count);
    /// Values decoded since the start.
    qint64 position() const { return fPosition; }

    QString problem() const;
    int problemCount() const { return fProblems; }
    QString formsFound() const;

private:
    TJCAMPTable fTable;
    qint64 fPosition = 0;
    int fProblems = 0;
};
