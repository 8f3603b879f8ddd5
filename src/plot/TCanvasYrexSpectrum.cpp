#include "TCanvasYrexSpectrum.h"

#include "T1DYrexPlot.h"
#include "TCmdYrexItemStateChanged.h"
#include "TCmdYrexSpectrumPanning.h"
#include "TYrexChainJson.h"
#include "TYrexPlotTitleParser.h"
#include "TYrexSpectrumPropertiesBag.h"
#include "TYrexTitleEdit.h"
#include "TYrexUnits.h"
#include "contexts/DARegions.h"
#include "plot/TStackedClassProperties.h"
#include "plot/TTypesetter.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"
#include "utils/CommonUtils.h"

#include <algorithm>

namespace {

constexpr double cRoundingShare = 1e-9; // of an axis, well under the distance of two points

constexpr int cPaletteSize = 8; // colours that are told apart in every kind of sight

enum TColorSetting { cSingleColor = 0, cGradient = 1, cHueColor = 2 };

} // namespace

TCanvasYrexSpectrum *yrexItem(ICanvasItem *item)
{
    // by class: an item that was read while the module was missing has the number too
    return dynamic_cast<TCanvasYrexSpectrum *>(item);
}

TCanvasYrexSpectrum::TCanvasYrexSpectrum(const TYrexSpectrumList &spectra, TPage *page, IProgress *progress)
    : TCanvasSpectrum(cRtti, page, QString(), progress)
    , fDataObj(new TYrexSpecDataObj(Utils::Common::createUuid(), spectra))
    , fStackedCtx(this)
    , fRegionHelper(this)
    , fDaCtx(new TDAYrexItemCtx(this))
{
    fDataObj->stack().addNotifier(this);
    listChanged();
    buildPlot();
    properties().addBag(new TYrexSpectrumPropertiesBag);
    properties().applyDefaultProperties();
    if (isStacked() && activeYrexPlot()) { // many spectra begin as an overlay, whatever the defaults say
        stack().setGrouped(overlayMode);
        activeYrexPlot()->setStackedDisplayMode(overlayMode);
    }
    setup();
}

TCanvasYrexSpectrum::~TCanvasYrexSpectrum()
{
    fDataObj.reset();
    hide();
}

void TCanvasYrexSpectrum::buildPlot()
{
    const TYrexSpectrum *spectrum = currentSpectrum();
    if (!spectrum)
        return;
    constexpr int cFollowPage = cFollowsPage;
    auto *plot = new T1DYrexPlot(T1DYrexPlot::cSpectrumKind, fDataObj->id(), this);
    setLayoutPolicy(cFollowPage, false);
    plot->changeUnits(TAxisDir(1), spectrum->xUnits(), false);
    plot->changeUnits(TAxisDir(2), spectrum->yUnits(), false);
    showAsStack(plot);
    plot->resetView();
    appendPlot(plot);
    updateStackedColors();
}

void TCanvasYrexSpectrum::showAsStack(T1DYrexPlot *plot)
{
    if (!isStacked())
        return;
    stack().setGrouped(0);
    plot->setStackedDisplayMode(overlayMode);
    if (stack().count() > cPaletteSize || isOrderedSeries()) // more than the eye tells apart, or in an order to be seen
        plot->stackedProperties().setColorMode(sequentialColors);
}

bool TCanvasYrexSpectrum::isOrderedSeries() const
{
    constexpr int cShortestSeries = 3;
    const int count = stack().count();
    for (int i = 1; count >= cShortestSeries && i < count; ++i) {
        if (fStackedCtx.arrayedValue(i) != fStackedCtx.arrayedValue(0))
            return true;
    }
    return false;
}

bool TCanvasYrexSpectrum::takeSeriesColors()
{
    T1DYrexPlot *plot = activeYrexPlot();
    if (!plot)
        return false;
    T1DStackedPlotProperties &properties = plot->stackedProperties();
    if (properties.hasOwnColors() || properties.colorSetting() != cHueColor || properties.colorMode() != paletteColors)
        return false;
    properties.setColorMode(sequentialColors);
    updateStackedColors();
    return true;
}

void TCanvasYrexSpectrum::addSpectra(const TYrexSpectrumList &spectra)
{
    stack().insertAt(stack().count(), spectra);
    T1DYrexPlot *plot = activeYrexPlot();
    if (!plot)
        return;
    showAsStack(plot);
    plot->resetView();
    updateStackedColors();
}

TYrexStack &TCanvasYrexSpectrum::stack() const
{
    static TYrexStack cEmpty;
    return fDataObj ? fDataObj->stack() : cEmpty;
}

T1DYrexPlot *TCanvasYrexSpectrum::activeYrexPlot() const
{
    TBasePlot *plot = activePlot();
    return plot && plot->plotType() == cPlotType ? static_cast<T1DYrexPlot *>(plot) : nullptr;
}

QString TCanvasYrexSpectrum::title(bool plotTitle) const
{
    const T1DYrexPlot *plot = activeYrexPlot();
    if (!plot || !fDataObj)
        return QString();
    if (plotTitle)
        return TTypesetter::plainText(spectrumTitle(-1));
    QStringList titles;
    for (const int index : stack().visibleIndices())
        titles.append(stack().at(index)->title());
    return titles.join('\n');
}

QString TCanvasYrexSpectrum::historyName() const
{
    const QString shown = title(true).simplified();
    return shown.isEmpty() ? title(false).simplified() : shown;
}

QString TCanvasYrexSpectrum::titleToEdit(int index) const
{
    return TYrexTitleEdit::text(*this, index);
}

QVariant TCanvasYrexSpectrum::swapTitle(int index, const QVariant &title)
{
    return TYrexTitleEdit::swap(*this, index, title);
}

QString TCanvasYrexSpectrum::type() const
{
    return QStringLiteral("Zarnu");
}

QString TCanvasYrexSpectrum::subtype() const
{
    if (!subtypeText().isEmpty())
        return subtypeText();
    return isStacked() ? QStringLiteral("stacked, ") : QString();
}

QString TCanvasYrexSpectrum::descriptiveText() const
{
    const TYrexSpectrum *spectrum = currentSpectrum();
    return spectrum ? spectrum->descriptiveText() : QString();
}

TCommand *TCanvasYrexSpectrum::activeSpectrumCommand(const TCanvasItemList &items, int index) const
{
    return new TCmdYrexItemStateChanged(TCmdYrexItemStateChanged::cSetActive, index, items);
}

TCommand *TCanvasYrexSpectrum::displayModeCommand(const TCanvasItemList &items, int mode) const
{
    return new TCmdYrexItemStateChanged(TCmdYrexItemStateChanged::cStackedMode, mode, items);
}

TCommand *TCanvasYrexSpectrum::panCommand(const TCanvasItemList &items, double dx, double dy) const
{
    auto command = std::make_unique<TCmdYrexSpectrumPanning>(TCmdYrexSpectrumPanning::cPan, items, true);
    command->addDelta(dx, dy);
    return command->hasMoved() ? command.release() : nullptr;
}

IYrexPlotData *TCanvasYrexSpectrum::plotData(const QUuid &id)
{
    return fDataObj && fDataObj->id() == id ? fDataObj.get() : nullptr;
}

QString TCanvasYrexSpectrum::titleText(const QUuid &, const QString &format, int, int index)
{
    return TYrexPlotTitleParser(*this, index).parse(format);
}

QString TCanvasYrexSpectrum::spectrumTitle(int index) const
{
    const T1DYrexPlot *plot = activeYrexPlot();
    return plot && fDataObj ? TYrexPlotTitleParser(*this, index).parse(plot->titleProperties().format) : QString();
}

int TCanvasYrexSpectrum::shownXUnits() const
{
    const T1DYrexPlot *plot = activeYrexPlot();
    return plot ? plot->xUnits() : int(cUnitArbitrary);
}

int TCanvasYrexSpectrum::shownYUnits() const
{
    const T1DYrexPlot *plot = activeYrexPlot();
    return plot ? plot->yUnits() : int(cUnitArbitrary);
}

QVector<QPair<double, double>> TCanvasYrexSpectrum::visibleRanges() const
{
    QVector<QPair<double, double>> ranges;
    const T1DYrexPlot *plot = activeYrexPlot();
    if (!plot)
        return ranges;
    const TRange axis = plot->horzAxis().getFullScale().sorted();
    QVector<TRange> visible = plot->horzRanges().toVector();
    if (visible.isEmpty())
        visible.append(axis);
    // the axis is that of the active spectrum; what others have beyond its ends was not hidden by anybody
    TRange full = axis;
    for (int i = 0; i < stack().count(); ++i) {
        const TRange own = TRange(firstXIn(plot->xUnits(), i), lastXIn(plot->xUnits(), i)).sorted();
        if (own.isFinite())
            full.setRange(std::min(full.a, own.a), std::max(full.b, own.b));
    }
    // x values are sums of steps, so the last point may lie a rounding error outside the axis that it defines
    const double slack = (full.b - full.a) * cRoundingShare;
    for (const TRange &range : qAsConst(visible)) {
        const double low = range.lo() <= axis.a ? full.a - slack : range.lo();
        const double high = range.hi() >= axis.b ? full.b + slack : range.hi();
        ranges.append({low, high});
    }
    return ranges;
}

void TCanvasYrexSpectrum::exportSeries(int index, QVector<double> *x, QVector<double> *y) const
{
    const auto values = [](const TYrexDataView &view) {
        return view.isValid() ? QVector<double>(view.values, view.values + view.count) : QVector<double>();
    };
    *x = values(fDataObj->xData(shownXUnits(), index));
    *y = values(fDataObj->yData(shownYUnits(), index));
    const int count = qMin(x->size(), y->size());
    x->resize(count);
    y->resize(count);
}

TYrexSpectrum *TCanvasYrexSpectrum::exportRecord(int index) const
{
    return fDataObj->spectrumAt(index);
}

void TCanvasYrexSpectrum::listChanged()
{
    if (fDataObj)
        fDataObj->listChanged();
}

QByteArray TCanvasYrexSpectrum::chainText() const
{
    const TYrexSpectrum *spectrum = currentSpectrum();
    if (!spectrum)
        return QByteArray();
    return TYrexChainJson::toJson(spectrum->procParams().actions()).trimmed().replace("\n  ", " ").replace("\n", " ");
}

QVector<TShownSeries> TCanvasYrexSpectrum::shownSeries() const
{
    QVector<TShownSeries> all;
    if (!activeYrexPlot() || !fDataObj)
        return all;
    const QVector<QPair<double, double>> ranges = visibleRanges();
    const auto isVisible = [&ranges](double x) {
        return std::any_of(ranges.begin(), ranges.end(),
                           [x](const QPair<double, double> &range) { return x >= range.first && x <= range.second; });
    };
    for (const int index : fStackedCtx.visibleOrder()) {
        QVector<double> x, y;
        exportSeries(index, &x, &y);
        TShownSeries series;
        series.fTitle = stack().at(index)->title();
        series.fXUnit = yrexUnitDisplayName(shownXUnits());
        series.fYUnit = yrexUnitDisplayName(shownYUnits());
        for (int i = 0; i < x.size(); ++i) {
            if (isVisible(x.at(i))) {
                series.fX.append(x.at(i));
                series.fY.append(y.at(i));
            }
        }
        all.append(series);
    }
    return all;
}

QColor TCanvasYrexSpectrum::curveColor() const
{
    const T1DYrexPlot *plot = activeYrexPlot();
    if (!plot)
        return QColor();
    const QColor own = isStacked() ? plot->stackedProperties().arrayedColor(stack().current()) : QColor();
    return own.isValid() ? own : plot->properties().curvePen.color();
}

void TCanvasYrexSpectrum::refreshAxes()
{
    T1DYrexPlot *plot = activeYrexPlot();
    const TYrexSpectrum *spectrum = currentSpectrum();
    if (plot && spectrum && plot->yUnits() != spectrum->yUnits())
        plot->changeUnits(vertDir, spectrum->yUnits(), false);
}

void TCanvasYrexSpectrum::updateStackedColors()
{
    if (!isStacked())
        return;
    T1DYrexPlot *plot = activeYrexPlot();
    if (!plot) {
        update();
        return;
    }
    T1DStackedPlotProperties &properties = plot->stackedProperties();
    QVector<QColor> colors = properties.colors();
    if (colors.size() < stack().count())
        colors.resize(stack().count());
    properties.setColors(colors);
    if (properties.colorSetting() == cHueColor) {
        TStackedClassProperties all;
        all.colorMode = properties.colorMode();
        all.baseColor = properties.baseColor();
        QVector<int> indices;
        for (int i = 0; i < stack().count(); ++i)
            indices.append(i);
        properties.generateColorsVector(all, indices);
    } else if (properties.colorSetting() == cGradient) {
        const auto groups = fDataObj->displayGroups(false);
        for (const QVector<int> &group : groups) {
            const QString text = stack().at(group.first())->spectrumClass();
            const auto found = properties.stackedClasses().constFind(text);
            if (found == properties.stackedClasses().constEnd() ||
                (found->baseColor == properties.baseColor() && found->colorMode == properties.colorMode()))
                continue;
            properties.generateColorsVector(*found, group);
        }
    }
    update();
}

double TCanvasYrexSpectrum::firstXIn(int unit, int index) const
{
    const TYrexSpectrum *spectrum = stack().at(index);
    return spectrum ? yrexConvertX(spectrum->firstX(), spectrum->origXUnits(), unit) : 0.0;
}

double TCanvasYrexSpectrum::lastXIn(int unit, int index) const
{
    const TYrexSpectrum *spectrum = stack().at(index);
    return spectrum ? yrexConvertX(spectrum->lastX(), spectrum->origXUnits(), unit) : 0.0;
}

TBasePlot *TCanvasYrexSpectrum::createPlot(int plotType, const QUuid &id)
{
    return plotType == cPlotType ? new T1DYrexPlot(T1DYrexPlot::cPlainKind, id, this) : nullptr;
}

void TCanvasYrexSpectrum::captureView(TViewHistoryEntry &view) const
{
    for (const TBasePlot *plot : plots()) {
        if (plot->plotType() == cPlotType)
            view.addPlotData(plot->id(), plot->getPlotData());
    }
}

void TCanvasYrexSpectrum::restoreView(const TViewHistoryEntry &view)
{
    for (TBasePlot *plot : plots()) {
        const TPlotData data = view.getPlotData(plot->id());
        if (plot->plotType() == cPlotType && data.isValid())
            plot->setPlotData(data);
    }
}

const TPlotHotArea &TCanvasYrexSpectrum::hotAreaAt(const QPoint &windowPoint) const
{
    return areaAt(canvasWnd2Item(windowPoint));
}

const TPlotHotArea &TCanvasYrexSpectrum::areaAt(const QPointF &itemPoint) const
{
    const T1DYrexPlot *plot = activeYrexPlot();
    if (!plot)
        return TPlotHotAreas::nullArea;
    const TPlotHotArea &region = fRegionHotAreas.hit(activePlotter()->canvasItem2Plot(itemPoint));
    if (region.isValid())
        return region;
    const bool isInside = QRectF(QPointF(0, 0), rect().size()).contains(itemPoint);
    return isInside ? plot->hitTest(itemPoint) : TPlotHotAreas::nullArea;
}

void TCanvasYrexSpectrum::store(TDataStream &stream) const
{
    TDataStreamAdaptor outer(stream);
    outer.startStore();
    TCanvasSpectrum::store(stream);
    TDataStreamAdaptor inner(stream);
    inner.startStore();
    if (fDataObj)
        fDataObj->store(stream);
    inner.endStore();
    TDataStreamAdaptor regions(stream);
    regions.startStore();
    DARegions::store(stream, fRegions);
    regions.endStore();
    outer.endStore();
}

void TCanvasYrexSpectrum::load(TDataStream &stream)
{
    TDataStreamAdaptor outer(stream);
    if (outer.hasData()) {
        TCanvasSpectrum::load(stream);
        TDataStreamAdaptor inner(stream);
        if (inner.hasData()) {
            if (!fDataObj) {
                fDataObj = std::make_unique<TYrexSpecDataObj>();
                fDataObj->stack().addNotifier(this);
            }
            fDataObj->load(stream);
            fDataObj->giveFileNumbers();
        }
        inner.skipData();
        TDataStreamAdaptor regions(stream); // older documents have none
        fRegions = regions.hasData() ? DARegions::load(stream) : QVector<TDARegion>();
        regions.skipData();
    }
    outer.skipData();
    stack().setCurrent(0);
}

void TCanvasYrexSpectrum::storeFullState(QByteArray &bytes) const
{
    bytes.clear();
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    fDataObj->store(stream);
    TDataStreamAdaptor block(stream);
    block.startStore();
    const T1DYrexPlot *plot = activeYrexPlot();
    const QVector<QColor> colors = plot ? plot->stackedProperties().colors() : QVector<QColor>();
    stream << bool(plot && plot->stackedProperties().hasOwnColors()) << qint32(colors.size());
    for (const QColor &color : colors)
        stream << color;
    block.endStore();
}

void TCanvasYrexSpectrum::restoreFullState(const QByteArray &bytes)
{
    constexpr int cColorSize = 11; // spec byte and five 16-bit components
    TDataStream stream(bytes);
    fDataObj->load(stream);
    bool ownColors = false;
    QVector<QColor> colors;
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        stream >> ownColors;
        const int count = stream.readCount(cColorSize);
        for (int i = 0; i < count && stream.isGood(); ++i) {
            QColor color;
            Utils::Stream::read(stream, color);
            colors.append(color);
        }
    }
    block.skipData();
    T1DYrexPlot *plot = activeYrexPlot();
    if (!plot || !plot->isArrayed())
        return;
    plot->stackedProperties().setOwnColors(ownColors);
    if (colors.size() >= stack().count())
        plot->stackedProperties().setColors(colors);
}

void TCanvasYrexSpectrum::storeDataState(QByteArray &bytes) const
{
    bytes.clear();
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    fDataObj->store(stream);
}

void TCanvasYrexSpectrum::restoreDataState(const QByteArray &bytes)
{
    TDataStream stream(bytes);
    fDataObj->load(stream);
}
