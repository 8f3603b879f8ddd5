// SPC files: one header, then a header of 32 bytes and float values for each spectrum.
#include "TPlainRead.h"
#include "TYrexGalacticSpcConverter.h"

#include <cstring>

namespace {

constexpr int cSpectra = 10000;
constexpr int cPoints = 1000;

template <typename T>
void put(QByteArray *bytes, int offset, T value)
{
    std::memcpy(bytes->data() + offset, &value, sizeof(T));
}

QByteArray mapBytes()
{
    QByteArray header(512, '\0');
    put(&header, 0, quint8(0x04));
    put(&header, 1, quint8(0x4B));
    put(&header, 2, quint8(4));
    put(&header, 3, quint8(0x80)); // floats
    put(&header, 4, qint32(cPoints));
    put(&header, 8, 4000.0);
    put(&header, 16, 400.0);
    put(&header, 24, qint32(cSpectra));
    put(&header, 28, quint8(1));
    put(&header, 29, quint8(2));
    QByteArray bytes = header;
    bytes.reserve(512 + cSpectra * (32 + 4 * cPoints));
    QByteArray one(32 + 4 * cPoints, '\0');
    for (int k = 0; k < cSpectra; ++k) {
        put(&one, 4, float(k));
        for (int i = 0; i < cPoints; ++i)
            put(&one, 32 + 4 * i, float((i * 37 + k) % 1009) * 1e-3f);
        bytes.append(one);
    }
    return bytes;
}

QString mapFile()
{
    return benchFile(QStringLiteral("map.spc"), mapBytes);
}

void spcPlain(benchmark::State &state)
{
    plainRead(state, mapFile());
}

void spcReadFile(benchmark::State &state)
{
    readSpectra<TYrexGalacticSpcConverter>(state, mapFile());
}

void spcConvert(benchmark::State &state)
{
    convertSpectra<TYrexGalacticSpcConverter>(state, mapFile());
}

BENCHMARK(spcPlain)->Unit(benchmark::kMillisecond);
BENCHMARK(spcReadFile)->Unit(benchmark::kMillisecond);
BENCHMARK(spcConvert)->Unit(benchmark::kMillisecond);

} // namespace
