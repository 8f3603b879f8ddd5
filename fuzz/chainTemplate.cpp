// Processing templates from foreign bytes: what is read can be written, reads back to the same, and runs.
#include "TYrexChainCheck.h"
#include "TYrexProcParams.h"
#include "TYrexSpectrum.h"
#include "stream/TDataStream.h"

#include <cstdint>
#include <cstdlib>

namespace {

QByteArray bodyOf(const TYrexProcParams &params)
{
    QByteArray bytes;
    TDataStream out(&bytes, QIODevice::WriteOnly);
    params.write(out);
    return bytes;
}

void run(const TYrexProcParams &params)
{
    for (int i = 0; i < params.actionCount(); ++i) {
        if (!TYrexChainCheck::fatalProblem(params.action(i)).isEmpty())
            return;
    }
    TYrexSpectrum spectrum;
    spectrum.setPointCount(16);
    spectrum.setValues({1, 2, 4, 9, 4, 2, 1, 0, 1, 0, -1, 0, 3, 0, 1, 0});
    spectrum.copyDataToOrgData();
    spectrum.setOrigUnits(0, 10);
    spectrum.procParams() = params;
    spectrum.process(0, 0, params.actionCount() - 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    TDataStream in(QByteArray::fromRawData(reinterpret_cast<const char *>(data), int(size)));
    TYrexProcParams params;
    if (params.readTemplate(in) != TYrexProcParams::cReadOk)
        return 0;
    const QByteArray written = bodyOf(params);
    TYrexProcParams again;
    TDataStream back(written);
    again.read(back);
    if (params.actionCount() < TYrexProcParams::cMaxActions - 10 && bodyOf(again) != written)
        std::abort();
    run(params);
    return 0;
}
