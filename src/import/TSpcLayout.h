#pragma once

#include "TSpcValues.h"

#include <QString>

class TBinaryFile;
struct TSpcHeader;

/// Where the subfiles of a file stand and how many values they hold.
struct TSpcLayout
{
    qint64 fFirst = 0;       // offset of the first subheader
    int fSubfiles = 1;       // as the header tells
    double fPoints = 0.0;    // of each subfile, as the file tells; may be any number
    bool fOwnX = false;      // X values stand in front of the Y values of the one subfile
    TSpcValueFormat fFormat; // of the Y values

    static TSpcLayout read(const TBinaryFile &file, const TSpcHeader &header);

    /// Why that many points cannot be; empty when they can. The functions below then hold.
    QString pointsProblem() const;
    /// Points of a spectrum, rounded half away from zero.
    int points() const;
    /// Values that stand in the file for it: a count with a fraction has one less than it rounds to.
    int storedPoints() const { return int(fPoints); }
    /// Offsets of a subheader and of its Y values, and bytes from one subheader to the next.
    qint64 subheader(int index) const { return fFirst + index * stride(); }
    qint64 values(int index) const;
    qint64 stride() const;
    /// Subfiles that begin in a file of that size, and never less than one.
    int present(qint64 fileSize) const;
};
