// Writes the seeds of the fuzz target "record" into the folder that is given.
#include "SpectrumBuilder.h"
#include "TYrexSpecDataObj.h"
#include "stream/TDataStream.h"

#include <QFile>
#include <cstdio>
#include <functional>

namespace {

bool write(const QString &path, char kind, const std::function<void(TDataStream &)> &store)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    store(stream);
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(QByteArray(1, kind) + bytes) == bytes.size() + 1;
}

TYrexSpectrum *marked()
{
    TYrexSpectrum *spectrum = newSpectrum({0.1, 0.5, 0.2, 0.7}, 4000, 400, 0, 10);
    spectrum->peaks().append(new TYrexDPLib::TYrexDPPeak);
    spectrum->integrals().append(TYrexIntegrationRegion(0.5, 2.5, 2));
    spectrum->paramsBundle().addParamsBlob("head", "a.spc", 0, QByteArray("bytes of a header"));
    spectrum->setSpectrumClass("A");
    return spectrum;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: makeRecordSeeds FOLDER\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]) + '/';
    const std::unique_ptr<TYrexSpectrum> spectrum(marked());
    TYrexSpecDataObj stack(QUuid(), {marked(), newSpectrum({1, 2, 3}, 0, 2)});
    stack.stack().setDeselected(1, true);
    stack.stack().setHidden(1, true);
    stack.properties().insert("key", 1.5);
    const bool good = write(folder + "empty-record", 0, [](TDataStream &s) { TYrexSpectrum().store(s); }) &&
                      write(folder + "record", 0, [&](TDataStream &s) { spectrum->store(s); }) &&
                      write(folder + "stack", 1, [&](TDataStream &s) { stack.store(s); });
    return good ? 0 : 1;
}
