// JCAMP-DX files on the host's way: cut into blocks, spectra into one item, parameters, a look inside; and what was
// read is written and read again.
#include "StandInItem.h"
#include "TJCAMPYrexConverter.h"
#include "builtin/TJCAMPFileConverter.h"

#include <QBuffer>
#include <QFile>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const int handle = memfd_create("fuzz", 0);
    require(handle >= 0 && write(handle, data, size) == ssize_t(size));
    const QString path = QString("/proc/self/fd/%1").arg(handle);
    const TStandInFactory factory;
    TJCAMPFileConverter converter(nullptr);
    converter.addBlockConverter(new TJCAMPYrexConverter);
    converter.importFile(path, nullptr);
    require(factory.fItems.size() <= 1 && converter.importedItems().size() == int(factory.fItems.size()));
    qint64 points = 0;
    for (const TYrexSpectrum *spectrum : factory.fItems.empty() ? TYrexSpectrumList() : factory.fItems[0]->fSpectra) {
        require(spectrum->values().size() == spectrum->pointCount());
        points += spectrum->pointCount();
    }
    converter.refusal(path);
    converter.metaData(path, {"1001", "1008", "1010", "2001", "header(TITLE)", "NPOINTS"});
    converter.inspect(path).text();
    constexpr qint64 cWrittenPoints = 20000;
    if (!factory.fItems.empty() && points <= cWrittenPoints) {
        const int count = factory.fItems[0]->fSpectra.size();
        require(converter.exportItems(converter.importedItems(), path) == 0);
        const TStandInFactory again;
        require(converter.importFile(path, nullptr) == 0);
        require(again.fItems.size() == 1 && again.fItems[0]->fSpectra.size() == count);
        for (int i = 0; i < count; ++i) {
            const TYrexSpectrum &before = *factory.fItems[0]->fSpectra.at(i);
            const TYrexSpectrum &after = *again.fItems[0]->fSpectra.at(i);
            require(before.pointCount() == after.pointCount() && before.origXUnits() == after.origXUnits() &&
                    before.yUnits() == after.yUnits());
        }
    }
    close(handle);
    return 0;
}
