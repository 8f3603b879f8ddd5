#pragma once

#include <QtGlobal>

class TBinaryFile;
struct TSpcHeader;

/// How the values of a spectrum or of an X array are stored.
struct TSpcValueFormat
{
    int fExponent = 0; // a power of 2; -128 for IEEE floats
    bool f16Bit = false;
    quint8 fFileVersion = 0;

    bool isFloat() const;
    /// Bytes of one value.
    int width() const { return f16Bit && !isFloat() ? 2 : 4; }
    /// Of the Y values of a file.
    static TSpcValueFormat ofValues(const TSpcHeader &header);
    /// Of the X array of a file, which is never of 16 bits.
    static TSpcValueFormat ofXArray(const TSpcHeader &header);
};

/// Reads `count` values from `offset` as fractions of 2 to the exponent: signed 32-bit integers of new files; unsigned
/// ones, upper half first, of old files; unsigned 16-bit integers; or floats. Values behind the end of the file leave
/// `destination` as it is. Returns how many were there.
qint64 readValues(const TBinaryFile &file, qint64 offset, const TSpcValueFormat &format, double *destination,
                  qint64 count);
