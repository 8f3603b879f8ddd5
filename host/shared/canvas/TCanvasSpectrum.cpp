#include "canvas/TCanvasSpectrum.h"

#include "canvas/DocumentBytes.h"
#include "canvas/TPage.h"
#include "plot/T1DStackedPlot.h"
#include "plot/TBasePlotter.h"
#include "plot/TPlotHotAreas.h"
#include "properties/TPropertiesBag.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

constexpr double cFarthestPlace = 1e6; // canvas units, 100 m

}

TCanvasSpectrum::TCanvasSpectrum(int rtti, TPage *page, const QString &name, IProgress *progress)
    : TCanvasBaseSpectrum(rtti, page, name)
    , fProgress(progress)
{
}

TCanvasSpectrum::~TCanvasSpectrum() = default;

void TCanvasSpectrum::appendPlot(TBasePlot *plot)
{
    TPlotEntry entry;
    entry.fPlot.reset(plot);
    fPlots.push_back(std::move(entry));
}

TBasePlot *TCanvasSpectrum::activePlot() const
{
    const bool inRange = fActive >= 0 && size_t(fActive) < fPlots.size();
    return inRange ? fPlots[size_t(fActive)].fPlot.get() : nullptr;
}

TBasePlotter *TCanvasSpectrum::activePlotter() const
{
    TBasePlot *plot = activePlot();
    return plot ? plot->plotter() : nullptr;
}

QList<TBasePlot *> TCanvasSpectrum::plots() const
{
    QList<TBasePlot *> plots;
    for (const TPlotEntry &entry : fPlots) {
        if (entry.fPlot)
            plots.append(entry.fPlot.get());
    }
    return plots;
}

QPointF TCanvasSpectrum::canvasWnd2Item(const QPoint &windowPoint) const
{
    const QTransform toWindow = canvas() ? canvas()->windowTransform() : QTransform();
    return toWindow.inverted().map(QPointF(windowPoint)) - rect().topLeft();
}

QPoint TCanvasSpectrum::canvasItem2Wnd(const QPointF &itemPoint) const
{
    const QTransform toWindow = canvas() ? canvas()->windowTransform() : QTransform();
    return toWindow.map(itemPoint + rect().topLeft()).toPoint();
}

TBasePlot *TCanvasSpectrum::pointedPlot(const QPoint &windowPoint) const
{
    const QRectF place(QPointF(0, 0), rect().size());
    return place.contains(canvasWnd2Item(windowPoint)) ? activePlot() : nullptr;
}

QPointF TCanvasSpectrum::canvas2Scale(const QPointF &itemPoint) const
{
    const TBasePlotter *plotter = activePlotter();
    return plotter ? plotter->canvas2Scale(itemPoint) : itemPoint;
}

QPointF TCanvasSpectrum::scale2Canvas(const QPointF &scalePoint) const
{
    const TBasePlotter *plotter = activePlotter();
    return plotter ? plotter->scale2Canvas(scalePoint) : scalePoint;
}

double TCanvasSpectrum::canvasToFraction(double length, Qt::Orientation orientation) const
{
    const QSizeF size = activePlotter() ? activePlotter()->adjustedPlotArea().size() : QSizeF();
    const double whole = orientation == Qt::Vertical ? size.height() : size.width();
    return whole > 0.0 ? length / whole : 0.0;
}

const TPlotHotArea &TCanvasSpectrum::areaAt(const QPointF &itemPoint) const
{
    const TBasePlot *plot = activePlot();
    return plot ? plot->hitTest(itemPoint) : TPlotHotAreas::nullArea;
}

void TCanvasSpectrum::paint(QPainter &painter)
{
    if (TBasePlot *plot = activePlot())
        plot->draw(painter, QRectF(QPointF(0, 0), rect().size()));
}

void TCanvasSpectrum::paintPicture(QPainter &painter)
{
    TBasePlot *plot = activePlot();
    if (!plot)
        return;
    const quint32 before = plot->stateWord();
    plot->setState(TBasePlot::cKeepHotAreas, true);
    plot->setState(TBasePlot::cDarkPaper, false); // that is for looking at the screen
    paint(painter);
    plot->setState(before, true);
    plot->setState(~before, false);
}

bool TCanvasSpectrum::hasHighlight() const
{
    const auto *plot = dynamic_cast<const T1DStackedPlot *>(activePlot());
    return plot && (plot->pointedIndex() >= 0 || plot->hasHighlights());
}

void TCanvasSpectrum::paintHighlight(QPainter &painter)
{
    if (auto *plot = dynamic_cast<T1DStackedPlot *>(activePlot())) {
        plot->drawPointedCurve(painter);
        plot->drawHighlights(painter);
    }
}

void TCanvasSpectrum::storePlots(TDataStream &stream) const
{
    stream << qint32(fPlots.size());
    for (const TPlotEntry &entry : fPlots) {
        stream << qint32(entry.fPlot ? entry.fPlot->plotType() : entry.fType);
        stream << (entry.fPlot ? entry.fPlot->id() : entry.fId);
        TDataStreamAdaptor block(stream);
        block.startStore();
        if (entry.fPlot)
            entry.fPlot->store(stream);
        writeRawBytes(stream, entry.fBytes);
        block.endStore();
    }
    stream << qint32(fActive);
}

void TCanvasSpectrum::storeBags(TDataStream &stream) const
{
    std::vector<TRawBag> bags = fBags;
    for (const std::unique_ptr<TPropertiesBag> &own : properties().bags()) {
        const auto isOfType = [&own](const TRawBag &bag) { return bag.fType == own->itemType(); };
        const bool isListed = std::any_of(bags.begin(), bags.end(), isOfType);
        // a document that came without the bag keeps coming without it until there is something to keep
        if (!isListed && (!fWasLoaded || !own->isEmpty()))
            bags.push_back({own->itemType(), QByteArray()});
    }
    stream << qint32(bags.size());
    for (const TRawBag &bag : bags) {
        stream << qint32(bag.fType);
        if (const TPropertiesBag *own = properties().bag(bag.fType)) {
            own->store(stream);
            continue;
        }
        TDataStreamAdaptor block(stream);
        block.startStore();
        writeRawBytes(stream, bag.fBytes);
        block.endStore();
    }
}

void TCanvasSpectrum::store(TDataStream &stream) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    const QRectF place = rect();
    stream << uniqueId() << name() << place.x() << place.y() << place.width() << place.height();
    stream << qint32(layoutPolicy()) << stateFlags() << subtypeText();
    storeLinks(stream);
    storeBags(stream);
    storePlots(stream);
    stream << QVariant(provenance());
    writeRawBytes(stream, fTail);
    block.endStore();
}

void TCanvasSpectrum::loadBags(TDataStream &stream)
{
    constexpr int cMinBagSize = 16; // type and an empty block
    fBags.clear();
    fWasLoaded = true;
    const int count = stream.readCount(cMinBagSize);
    for (int i = 0; i < count && stream.isGood(); ++i) {
        TRawBag bag;
        qint32 type = 0;
        stream >> type;
        bag.fType = type;
        if (TPropertiesBag *own = properties().bag(type)) {
            own->load(stream);
        } else {
            TDataStreamAdaptor block(stream);
            if (block.hasData())
                bag.fBytes = readRestOfBlock(stream);
            block.skipData();
        }
        fBags.push_back(bag);
    }
}

void TCanvasSpectrum::loadPlot(TDataStream &stream)
{
    TPlotEntry entry;
    qint32 type = 0;
    stream >> type >> entry.fId;
    entry.fType = type;
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        entry.fPlot.reset(createPlot(entry.fType, entry.fId));
        if (entry.fPlot)
            entry.fPlot->load(stream);
        entry.fBytes = readRestOfBlock(stream);
    }
    block.skipData();
    fPlots.push_back(std::move(entry));
}

void TCanvasSpectrum::loadPlots(TDataStream &stream)
{
    constexpr int cMinPlotSize = 32; // type, id and an empty block
    fPlots.clear();
    const int count = stream.readCount(cMinPlotSize);
    for (int i = 0; i < count && stream.isGood(); ++i)
        loadPlot(stream);
    qint32 active = 0;
    stream >> active;
    fActive = active;
}

void TCanvasSpectrum::load(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        QUuid id;
        QString itemName;
        QString subtypeName;
        double x = 0.0, y = 0.0, width = 0.0, height = 0.0;
        qint32 policy = 0;
        quint8 flags = 0;
        stream >> id >> itemName >> x >> y >> width >> height >> policy >> flags >> subtypeName;
        const auto isPlace = [](double value) { return std::abs(value) <= cFarthestPlace; }; // false for NaN
        if (!isPlace(x) || !isPlace(y) || !isPlace(width) || !isPlace(height))
            stream.setStatus(QDataStream::ReadCorruptData);
        setUniqueId(id);
        setName(itemName);
        setRect(QRectF(x, y, width, height));
        setLayoutPolicy(policy, false);
        setStateFlags(flags);
        setSubtypeText(subtypeName);
        loadLinks(stream);
        loadBags(stream);
        loadPlots(stream);
        QVariant map;
        if (stream.readVariant(map))
            provenance() = map.toMap();
        fTail = readRestOfBlock(stream);
    }
    block.skipData();
}
