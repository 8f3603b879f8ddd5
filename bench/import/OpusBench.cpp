// OPUS files with a series of spectra: a trace of floats and an info record of 152 bytes for each.
#include "TPlainRead.h"
#include "TYrexOpusConverter.h"

#include <cstring>

namespace {

constexpr int cTraces = 2000;
constexpr int cPoints = 2000;
constexpr int cInfo = 152;
constexpr int cBlock = 24 + 2 * 12; // behind header and directory
constexpr int cFirst = 24;          // of the traces in the block

template <typename T>
void put(QByteArray *bytes, int offset, T value)
{
    std::memcpy(bytes->data() + offset, &value, sizeof(T));
}

QByteArray seriesBytes()
{
    constexpr int cStride = 4 * cPoints + cInfo;
    constexpr int cBlockSize = cFirst + cTraces * cStride;
    QByteArray bytes(cBlock + cFirst, '\0');
    bytes.reserve(cBlock + cBlockSize);
    put(&bytes, 0, quint32(0xFEFE0A0A));
    put(&bytes, 12, qint32(24));
    put(&bytes, 16, qint32(2));
    put(&bytes, 20, qint32(2));
    put(&bytes, 24, quint32(0x3400));
    put(&bytes, 28, quint32(6));
    put(&bytes, 32, quint32(24));
    put(&bytes, 36, quint32(0x0010100F));
    put(&bytes, 40, quint32(cBlockSize / 4));
    put(&bytes, 44, quint32(cBlock));
    put(&bytes, cBlock + 4, qint32(cTraces));
    put(&bytes, cBlock + 8, qint32(cFirst));
    put(&bytes, cBlock + 12, qint32(4 * cPoints));
    put(&bytes, cBlock + 16, qint32(cInfo));
    QByteArray one(cStride, '\0');
    put(&one, 4 * cPoints + 12, qint32(cPoints));
    put(&one, 4 * cPoints + 72, 4000.0);
    put(&one, 4 * cPoints + 80, 400.0);
    put(&one, 4 * cPoints + 104, 0.5);
    for (int k = 0; k < cTraces; ++k) {
        for (int i = 0; i < cPoints; ++i)
            put(&one, 4 * i, float((i * 37 + k) % 1009) * 1e-3f);
        bytes.append(one);
    }
    return bytes;
}

QString seriesFile()
{
    return benchFile(QStringLiteral("series.0"), seriesBytes);
}

void opusPlain(benchmark::State &state)
{
    plainRead(state, seriesFile());
}

void opusReadFile(benchmark::State &state)
{
    readSpectra<TYrexOpusConverter>(state, seriesFile());
}

void opusConvert(benchmark::State &state)
{
    convertSpectra<TYrexOpusConverter>(state, seriesFile());
}

BENCHMARK(opusPlain)->Unit(benchmark::kMillisecond);
BENCHMARK(opusReadFile)->Unit(benchmark::kMillisecond);
BENCHMARK(opusConvert)->Unit(benchmark::kMillisecond);

} // namespace
