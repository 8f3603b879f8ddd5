#pragma once

#include "resampleMonotoneCubic.h"

#include <QVector>

class TBinaryFile;
struct TSpcHeader;

/// The X array of a file, and the even grid that its spectra are brought to.
///
/// The grid begins at the smaller of first and last X of the header, its step is the smallest distance of neighbouring
/// X values; so it has round(range / step) points and ends one step before the greater X.
class TSpcAxis
{
public:
    enum TReading {
        cNoArray,    // the file has an even axis
        cByExponent, // stored like 32-bit Y values
        cAsFloats,   // stored as floats, whatever the exponent says
        cUnusable    // neither makes sense, or the file ends before; the spectra stay on the even axis of the header
    };

    /// The even axis of a header without X array.
    TSpcAxis() = default;
    /// Reads the X array; the caller has checked that `points` of them may be allocated.
    static TSpcAxis read(const TBinaryFile &file, const TSpcHeader &header, int points);

    TReading reading() const { return fReading; }
    const TEvenGrid &grid() const { return fGrid; }
    /// The number of points of a spectrum after resample().
    int pointCount(int points) const { return isResampled(points) ? fGrid.fCount : points; }
    /// Brings values at the points of the array to the grid, from first X to last X of the header. Without a usable
    /// array, and with one that is even already, they stay as they are but for their direction.
    void resample(QVector<double> *y) const;

private:
    bool isResampled(int points) const { return fGrid.fCount > points; }
    bool take(QVector<double> *x, const TSpcHeader &header);

    TReading fReading = cNoArray;
    QVector<double> fX;      // ascending; empty without a usable array
    bool fDescends = false;  // the array in the file
    bool fDownwards = false; // from first X to last X
    TEvenGrid fGrid;
};
