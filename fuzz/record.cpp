// Loads bytes as a spectrum record (first byte even) or as a data object (odd), asks it what a plot asks, and stores it
// again.
#include "TYrexSpecDataObj.h"
#include "stream/TDataStream.h"

namespace {

void checkRecord(const QByteArray &bytes)
{
    TYrexSpectrum spectrum;
    TDataStream in(bytes);
    spectrum.load(in);
    QByteArray out;
    TDataStream stream(&out, QIODevice::WriteOnly);
    spectrum.store(stream);
    spectrum.reparseParams();
}

void checkDataObject(const QByteArray &bytes)
{
    TYrexSpecDataObj data;
    TDataStream in(bytes);
    data.load(in);
    for (const int index : data.displayIndices()) {
        data.axisData(0, 1, index);
        data.axisData(1, 10, index);
        data.baselinePointData(0, 0, index);
        data.baselinePointData(1, 0, index);
        data.peaks(0, index);
        data.integrals(0, index);
    }
    data.axisRange(0, 0, 10);
    data.allDisplayPositions();
    QByteArray out;
    TDataStream stream(&out, QIODevice::WriteOnly);
    data.store(stream);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data) + 1, int(size) - 1);
    if (data[0] % 2 == 0)
        checkRecord(bytes);
    else
        checkDataObject(bytes);
    return 0;
}
