#include "YrexSpectrumBytes.h"

#include "TYrexSpectrum.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <QtEndian>
#include <memory>

namespace {

constexpr int cSizeBytes = 4;        // in front of compressed bytes: how many they become
constexpr qint64 cMostGrowth = 1100; // no deflated byte becomes more
constexpr int cMinSpectrum = 5;      // bytes of a block

bool isSizePlausible(const QByteArray &bytes)
{
    return bytes.size() > cSizeBytes && qFromBigEndian<quint32>(bytes.constData()) <= cMostGrowth * bytes.size();
}

} // namespace

QByteArray YrexSpectrumBytes::store(const TYrexSpectrumList &spectra)
{
    QByteArray bytes;
    {
        TDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << qint32(spectra.size());
        for (const TYrexSpectrum *spectrum : spectra) {
            TDataStreamAdaptor block(stream);
            block.startStore();
            spectrum->store(stream);
            block.endStore();
        }
    }
    return qCompress(bytes);
}

TYrexSpectrumList YrexSpectrumBytes::load(const QByteArray &bytes)
{
    const QByteArray plain = isSizePlausible(bytes) ? qUncompress(bytes) : QByteArray();
    TDataStream stream(plain);
    const int count = stream.readCount(cMinSpectrum);
    TYrexSpectrumList spectra;
    bool isWhole = true;
    for (int i = 0; i < count && isWhole; ++i) {
        auto spectrum = std::make_unique<TYrexSpectrum>();
        TDataStreamAdaptor block(stream);
        isWhole = block.hasData();
        if (isWhole)
            spectrum->load(stream);
        block.skipData();
        isWhole = isWhole && stream.isGood();
        spectra.append(spectrum.release());
    }
    if (isWhole)
        return spectra;
    qDeleteAll(spectra);
    return {};
}
