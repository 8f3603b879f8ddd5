// Writes the seeds of the fuzz target "document" into the folder that is given.
#include "SpectrumBuilder.h"
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "canvas/TUnknownItem.h"
#include "commands/TCmdCreateItem.h"
#include "numerics/LinearFit.h"
#include "properties/TItemProperties.h"
#include "properties/TPropertiesBag.h"
#include "stream/TDataStream.h"
#include "tables/TCanvasTable.h"
#include "utils/CommonUtils.h"

#include <QFile>
#include <QGuiApplication>
#include <cstdio>

namespace {

bool write(const QString &path, char kind, const TDocument &document)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    document.store(stream);
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(QByteArray(1, kind) + bytes) == bytes.size() + 1;
}

void import(TDocument &document, TCanvasItem *item)
{
    document.history().push(
        new TCmdCreateItem(TCmdCreateItem::cImport, {item}, &document, nullptr, {{"Filename", "a.csv"}}, 0));
}

TCanvasItem *single()
{
    TYrexSpectrum *spectrum = newSpectrum({0.1, 0.5, 0.2, 0.7}, 4000, 400, 0, 10);
    spectrum->peaks().append(new TYrexDPLib::TYrexDPPeak);
    spectrum->integrals().append(TYrexIntegrationRegion(0.5, 2.5, 2));
    return new TCanvasYrexSpectrum({spectrum}, nullptr, nullptr);
}

/// With a chain of two actions; one seed with all of them is enough.
TYrexSpectrum *withShortChain(TYrexSpectrum *spectrum)
{
    spectrum->procParams().setActions(spectrum->procParams().actions().mid(0, 2));
    spectrum->process(cProcessOnlyAccept, 0, 1);
    return spectrum;
}

TCanvasItem *stack(int displayMode)
{
    auto *item = new TCanvasYrexSpectrum(
        {withShortChain(newSpectrum({1, 2, 3}, 0, 2)), withShortChain(newSpectrum({3, 1, 2}, 0, 2, 3, 18))}, nullptr,
        nullptr);
    item->stack().at(1)->setSpectrumClass("A");
    item->stack().setGrouped(displayMode);
    item->activeYrexPlot()->setStackedDisplayMode(displayMode);
    return item;
}

/// A table with a colour, a raised sign and a cell without a number, and a chart with a line through its points.
TCanvasItem *table(bool isChart)
{
    TCanvasTable::setReader([isChart](const TTableProperties &, TCanvasItem *, TTableContent &content) {
        content.fTitle = "Peaks";
        content.fColumns = {{"Position [cm^{-1}]", true}, {"Annotation", false}};
        content.fRows = {{{"1601.2", "nu_2"}, QColor(Qt::blue)}, {{"", "b"}, QColor()}};
        content.fIsChart = isChart;
        content.fChart.setPoints({1.0, 2.0, 3.0}, {2.0, 4.5, 5.5}, QColor(Qt::red));
        content.fChart.setLine(LinearFit::fit({1.0, 2.0, 3.0}, {2.0, 4.5, 5.5}, LinearFit::cThroughZero));
        return true;
    });
    auto *item = new TCanvasTable;
    item->setTableProperties(TTableProperties(isChart ? "regionChart" : "peaks"));
    const std::unique_ptr<TCanvasItem> source(single());
    item->setSource(source.get());
    item->setRect(QRectF(QPointF(100, 100), item->naturalSize()));
    TCanvasTable::setReader({});
    return item;
}

/// A plot that is cut on both axes, with a view, bag, marks and a second axis of its own, in several units.
TCanvasItem *cut()
{
    TYrexSpectrum *spectrum = newSpectrum({0.1, 0.5, 0.2, 0.7, 0.3, 0.6}, 4000, 400, cUnitWavenumber, cUnitAbsorbance);
    spectrum->peaks().append(new TYrexDPLib::TYrexDPPeak);
    spectrum->integrals().append(TYrexIntegrationRegion(500.0, 1500.0, 2));
    auto *item = new TCanvasYrexSpectrum({spectrum}, nullptr, nullptr);
    T1DYrexPlot *plot = item->activeYrexPlot();
    plot->changeUnits(horzDir, cUnitNanometers, false);
    plot->hRanges().hide(TRange(5000.0, 9000.0));
    plot->hRanges().hide(TRange(12000.0, 15000.0));
    plot->vRanges().hide(TRange(0.3, 0.4));
    plot->setScale(horzDir, 3000.0, 20000.0);
    plot->properties().secondAxis = cUnitWavenumber;
    plot->properties().showMarkers = true;
    for (const std::unique_ptr<TPropertiesBag> &bag : item->properties().bags()) {
        bag->fillFrom(*item);
        bag->setValue(bag->values().firstKey(), bag->values().first());
    }
    return item;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: makeDocumentSeeds FOLDER\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    Utils::Common::setDeterministic("seeds");
    Utils::Common::setFixedTime(QDateTime::fromSecsSinceEpoch(0, Qt::UTC));
    const QString folder = QString::fromLocal8Bit(argv[1]) + '/';
    bool good = write(folder + "empty", 0, TDocument());
    {
        TDocument document;
        import(document, single());
        good = write(folder + "single", 0, document) && good;
    }
    for (const int mode : {2, TYrexStack::cGroupedDisplayMode}) { // overlay and rows of classes
        TDocument document;
        import(document, stack(mode));
        good = write(folder + QString("stack%1").arg(mode), 0, document) && good;
    }
    {
        TDocument document;
        import(document, cut());
        document.appendPage();
        good = write(folder + "recovered", 2, document) && good;
    }
    {
        TDocument document;
        import(document, table(false));
        import(document, table(true));
        good = write(folder + "table", 0, document) && good;
    }
    TDocument document;
    document.settings().insert("key", 2.5);
    import(document, new TUnknownItem(199));
    document.appendPage()->setTail("newer");
    return write(folder + "unknown", 0, document) && good ? 0 : 1;
}
