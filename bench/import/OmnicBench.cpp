// An OMNIC group: a description, a header, values and experiment information for each spectrum.
#include "TPlainRead.h"
#include "TYrexOmnicSpaConverter.h"

#include <cstring>

namespace {

constexpr int cSpectra = 1000;
constexpr int cPoints = 1800;
constexpr int cDescriptionSize = 140;
constexpr int cTitleSize = 264;
constexpr int cDataSize = 4 * cPoints;
constexpr int cInformationSize = 24;
constexpr int cBlocks = 4; // of a spectrum

template <typename T>
void put(QByteArray *bytes, int offset, T value)
{
    std::memcpy(bytes->data() + offset, &value, sizeof(T));
}

QByteArray groupBytes()
{
    constexpr int cDirectoryAt = 304;
    constexpr int cSpectrumSize = cDescriptionSize + cTitleSize + cDataSize + cInformationSize;
    const int blocksAt = cDirectoryAt + 16 * cBlocks * cSpectra;
    QByteArray bytes(blocksAt + cSpectra * cSpectrumSize, '\0');
    bytes.replace(0, 20, "Spectral Data File\r\n");
    put(&bytes, 294, quint16(cBlocks * cSpectra));
    const int types[cBlocks] = {2, 107, 3, 130};
    const int sizes[cBlocks] = {cDescriptionSize, cTitleSize, cDataSize, cInformationSize};
    int block = blocksAt;
    for (int i = 0; i < cBlocks * cSpectra; ++i) {
        const int kind = i % cBlocks;
        const int entry = cDirectoryAt + 16 * i;
        put(&bytes, entry, quint16(types[kind]));
        put(&bytes, entry + 2, quint32(block));
        put(&bytes, entry + 6, quint32(sizes[kind]));
        if (types[kind] == 2) {
            put(&bytes, block + 4, qint32(cPoints));
            put(&bytes, block + 8, quint8(1));
            put(&bytes, block + 12, quint8(17));
            put(&bytes, block + 16, 4000.0f);
            put(&bytes, block + 20, 400.0f);
        } else if (types[kind] == 107) {
            bytes.replace(block, 10, "*Spectrum ");
            put(&bytes, block + 256, quint32(3685881997u + quint32(i)));
        } else if (types[kind] == 3) {
            for (int k = 0; k < cPoints; ++k)
                put(&bytes, block + 4 * k, float((k * 37 + i) % 1009) * 1e-3f);
        }
        block += sizes[kind];
    }
    return bytes;
}

QString groupFile()
{
    return benchFile(QStringLiteral("group.spg"), groupBytes);
}

void omnicPlain(benchmark::State &state)
{
    plainRead(state, groupFile());
}

void omnicRead(benchmark::State &state)
{
    readSpectra<TYrexOmnicSpaConverter>(state, groupFile());
}

void omnicConvert(benchmark::State &state)
{
    convertSpectra<TYrexOmnicSpaConverter>(state, groupFile());
}

BENCHMARK(omnicPlain)->Unit(benchmark::kMillisecond);
BENCHMARK(omnicRead)->Unit(benchmark::kMillisecond);
BENCHMARK(omnicConvert)->Unit(benchmark::kMillisecond);

} // namespace
