#include "TSpcValues.h"

#include "TBinaryFile.h"
#include "TSpcHeader.h"

#include <cmath>

bool TSpcValueFormat::isFloat() const
{
    return fExponent == TSpcHeader::cFloatExponent;
}

TSpcValueFormat TSpcValueFormat::ofValues(const TSpcHeader &header)
{
    return {header.fExponent, header.is16Bit(), header.fVersion};
}

TSpcValueFormat TSpcValueFormat::ofXArray(const TSpcHeader &header)
{
    return {header.fExponent, false, header.fVersion};
}

qint64 readValues(const TBinaryFile &file, qint64 offset, const TSpcValueFormat &format, double *destination,
                  qint64 count)
{
    if (format.isFloat())
        return file.floats(offset, count, destination);
    if (format.f16Bit) {
        const double scale = std::ldexp(1.0, format.fExponent - 16);
        return file.numbers<quint16>(offset, count, destination, [scale](quint16 value) { return value * scale; });
    }
    const double scale = std::ldexp(1.0, format.fExponent - 32);
    if (format.fFileVersion == cSpcNew)
        return file.numbers<qint32>(offset, count, destination, [scale](qint32 value) { return value * scale; });
    return file.numbers<quint32>(offset, count, destination,
                                 [scale](quint32 value) { return ((value << 16) | (value >> 16)) * scale; });
}
