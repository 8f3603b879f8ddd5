// JCAMP-DX files on the host's way: cut into blocks, spectra into one item, parameters, a look inside; and what was
// read is written and read again.
#include "IYrexExportView.h"
#include "IYrexItemFactory.h"
#include "TJCAMPYrexConverter.h"
#include "TYrexSpectrum.h"
#include "builtin/TJCAMPFileConverter.h"

#include <QBuffer>
#include <QFile>
#include <cstdlib>
#include <memory>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace {

class TItem : public ICanvasItem, public IYrexExportView
{
public:
    explicit TItem(const TYrexSpectrumList &spectra)
        : fSpectra(spectra)
    {
    }
    ~TItem() override { qDeleteAll(fSpectra); }
    int rtti() const override { return 115; }
    QUuid uniqueId() const override { return QUuid(); }
    bool isActive() const override { return true; }
    bool isSelectedForEdit() const override { return true; }
    bool hasExportData() const override { return true; }
    bool hasSpectrumPlot() const override { return true; }
    int shownXUnits() const override { return 0; }
    int shownYUnits() const override { return 0; }
    QVector<QPair<double, double>> visibleRanges() const override { return {}; }
    int exportSpectrumCount() const override { return fSpectra.size(); }
    void exportSeries(int, QVector<double> *, QVector<double> *) const override {}
    TYrexSpectrum *exportRecord(int index) const override { return fSpectra.value(index); }

    TYrexSpectrumList fSpectra;
};

class TFactory : public IYrexItemFactory
{
public:
    ICanvasItem *createSpectrumItem(const TYrexSpectrumList &spectra, ICanvas *) override
    {
        fItems.push_back(std::make_unique<TItem>(spectra));
        return fItems.back().get();
    }
    void addSpectra(ICanvasItem *item, const TYrexSpectrumList &spectra) override
    {
        static_cast<TItem *>(item)->fSpectra += spectra;
    }

    std::vector<std::unique_ptr<TItem>> fItems;
};

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
    TFactory factory;
    IYrexItemFactory::setCurrent(&factory);
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
        TFactory again;
        IYrexItemFactory::setCurrent(&again);
        require(converter.importFile(path, nullptr) == 0);
        require(again.fItems.size() == 1 && again.fItems[0]->fSpectra.size() == count);
        for (int i = 0; i < count; ++i) {
            const TYrexSpectrum &before = *factory.fItems[0]->fSpectra.at(i);
            const TYrexSpectrum &after = *again.fItems[0]->fSpectra.at(i);
            require(before.pointCount() == after.pointCount() && before.origXUnits() == after.origXUnits() &&
                    before.yUnits() == after.yUnits());
        }
    }
    IYrexItemFactory::setCurrent(nullptr);
    close(handle);
    return 0;
}
