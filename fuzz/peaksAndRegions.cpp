// The measured parts of a spectrum's stream, peaks and then regions, from foreign bytes.
#include "TYrexDPLib.h"
#include "TYrexIntegrationRegions.h"
#include "stream/TDataStream.h"

#include <cstdint>
#include <cstdlib>

namespace {

QByteArray bytesOf(const TYrexDPLib::TYrexDPPeakList &peaks, const TYrexIntegrationRegions &regions)
{
    QByteArray bytes;
    TDataStream out(&bytes, QIODevice::WriteOnly);
    TYrexDPLib::writePeakList(out, peaks);
    regions.store(out);
    return bytes;
}

QByteArray reread(TDataStream &in)
{
    TYrexDPLib::TYrexDPPeakList peaks;
    TYrexIntegrationRegions regions;
    TYrexDPLib::readPeakList(in, peaks);
    regions.load(in);
    if (regions.normValue() == 0.0)
        std::abort();
    const double y[] = {1.0, 0.5, 0.0, -1.0};
    for (int i = 0; i < regions.count(); ++i)
        TYrexIntegrationRegions::areaOf(y, 4, regions.at(i)->boundA, regions.at(i)->boundB, 10, 4.0);
    const QByteArray bytes = bytesOf(peaks, regions);
    TYrexDPLib::deleteAllPeaks(peaks);
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    TDataStream in(QByteArray::fromRawData(reinterpret_cast<const char *>(data), int(size)));
    const QByteArray written = reread(in);
    TDataStream back(written);
    if (reread(back) != written)
        std::abort();
    return 0;
}
