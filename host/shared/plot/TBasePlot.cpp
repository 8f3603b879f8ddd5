#include "plot/TBasePlot.h"
#include "plot/PainterUtils.h"
#include "plot/TBasePlotter.h"
#include "plot/TPlotHotAreas.h"
#include "settings/TNumberFormat.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"
#include <QPaintDevice>
#include <QPainter>
#include <cmath>

namespace {

/// The value that lies `distance` further along the axis, hidden stretches passed over.
double movedVisibly(double value, double distance, const TRanges &hidden)
{
    const QVector<TRange> &gaps = hidden.toVector();
    if (distance >= 0.0) {
        for (const TRange &gap : gaps) {
            if (gap.b <= value)
                continue;
            const double free = std::max(0.0, gap.a - value);
            if (distance <= free)
                break;
            distance -= free;
            value = gap.b;
        }
        return value + distance;
    }
    for (int i = gaps.size() - 1; i >= 0; --i) {
        if (gaps.at(i).a >= value)
            continue;
        const double free = std::max(0.0, value - gaps.at(i).b);
        if (-distance <= free)
            break;
        distance += free;
        value = gaps.at(i).a;
    }
    return value + distance;
}

} // namespace

TBasePlot::TBasePlot(int plotType, const QUuid &id)
    : fPlotType(plotType)
    , fId(id)
{
}

TBasePlot::~TBasePlot() = default;

QVector<TAxis *> TBasePlot::axesOf(TAxisDir dir)
{
    return {&axis(dir)};
}

bool TBasePlot::hasNumbers(TAxisDir) const
{
    return true;
}

void TBasePlot::draw(QPainter &painter, const QRectF &rect)
{
    fRect = rect;
    if (!(fState & cKeepHotAreas) && painter.device()) {
        const double ratio = painter.device()->devicePixelRatioF();
        fViewScale = Utils::Painter::deviceScale(painter) / (ratio > 0.0 ? ratio : 1.0);
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, fProperties.antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    const QColor paper = plotter()->paper();
    if (paper.isValid())
        painter.fillRect(rect, paper);
    plotter()->holdLayout();
    drawAxes(painter);
    drawCurves(painter);
    drawTitle(painter);
    plotter()->releaseLayout();
    painter.restore();
}

int TBasePlot::viewDecimals(TAxisDir dir) const
{
    constexpr double cMostDecimals = 8.0;
    const QRectF curves = plotter()->getPlotCurvesRect();
    const double length = dir == horzDir ? curves.width() : curves.height();
    const double pixels = length * (fViewScale > 0.0 ? fViewScale : 1.0);
    const double span = axis(dir).drawnScale().span();
    if (!(pixels > 0.0) || !(span > 0.0))
        return 0;
    return int(std::clamp(std::ceil(-std::log10(span / pixels)) + 1.0, 0.0, cMostDecimals));
}

TPlotReadout TBasePlot::readout(const QPointF &itemPos) const
{
    TPlotReadout readout;
    if (!plotter()->getPlotCurvesRect().contains(itemPos))
        return readout;
    readout.fIsValid = true;
    readout.fPoint = plotter()->canvas2Scale(itemPos);
    readout.fX = TNumberFormat::fixed(readout.fPoint.x(), viewDecimals(horzDir));
    readout.fY = TNumberFormat::fixed(readout.fPoint.y(), viewDecimals(vertDir));
    return readout;
}

const TPlotHotArea &TBasePlot::hitTest(const QPointF &) const
{
    return TPlotHotAreas::nullArea;
}

void TBasePlot::drawAxes(QPainter &painter)
{
    plotter()->drawGrid(painter);
    plotter()->drawAxis(painter, horzDir);
    plotter()->drawAxis(painter, vertDir);
    plotter()->drawFrame(painter);
    plotter()->drawSecondAxis(painter);
}

void TBasePlot::drawCurves(QPainter &) {}

void TBasePlot::drawTitle(QPainter &) {}

void TBasePlot::setupFullView(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    fProperties.store(stream);
    for (const TAxisDir dir : {horzDir, vertDir})
        stream << quint8(axis(dir).isVisible()) << axis(dir).getScale().a << axis(dir).getScale().b;
    block.endStore();
    fProperties.frame = noFrame;
    for (const TAxisDir dir : {horzDir, vertDir})
        axis(dir).setVisible(false);
    setScalesToFull();
}

void TBasePlot::resetFullView(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        fProperties.load(stream);
        for (const TAxisDir dir : {horzDir, vertDir}) {
            quint8 visible = 1;
            TRange scale = axis(dir).getScale();
            stream >> visible >> scale.a >> scale.b;
            if (!stream.isGood())
                break;
            axis(dir).setVisible(visible != 0);
            axis(dir).setScale(scale.a, scale.b);
        }
    }
    block.skipData();
}

TScaleInfo TBasePlot::getScaleInfo() const
{
    return {horzAxis().getScale(), vertAxis().getScale(), horzAxis().getFullScale(), vertAxis().getFullScale()};
}

void TBasePlot::setScaleInfo(const TScaleInfo &info)
{
    setFullScale(hAxis(), hRanges(), info.horzFull.a, info.horzFull.b);
    setFullScale(vAxis(), vRanges(), info.vertFull.a, info.vertFull.b);
    setScale(horzDir, info.horz.a, info.horz.b);
    setScale(vertDir, info.vert.a, info.vert.b);
}

void TBasePlot::setAxisLabel(TAxisDir dir, const QString &label)
{
    for (TAxis *each : axesOf(dir))
        each->setLabel(label);
}

void TBasePlot::setAxisVisible(TAxisDir dir, bool visible)
{
    for (TAxis *each : axesOf(dir))
        each->setVisible(visible);
}

void TBasePlot::setAxisPosPolicy(TAxisDir dir, int policy)
{
    for (TAxis *each : axesOf(dir))
        each->setPosPolicy(policy);
}

void TBasePlot::setFullScale(TAxisDir dir, double from, double to)
{
    axis(dir).setFullScale(from, to);
    ranges(dir).showAll(axis(dir).getFullScale());
}

void TBasePlot::setFullScale(TAxis &axis, TRanges &ranges, double from, double to)
{
    const TRange before = axis.getFullScale();
    axis.setFullScale(from, to);
    ranges.encloseIn(before, axis.getFullScale());
}

void TBasePlot::setScale(TAxisDir dir, double from, double to)
{
    axis(dir).setScale(from, to);
}

void TBasePlot::setScaleToFull(int mask)
{
    for (const TAxisDir dir : {horzDir, vertDir}) {
        if (mask & dir)
            axis(dir).setScaleToFull();
    }
}

void TBasePlot::showAll(int mask)
{
    for (const TAxisDir dir : {horzDir, vertDir}) {
        if (mask & dir)
            ranges(dir).showAll(axis(dir).getFullScale());
    }
}

bool TBasePlot::hideRange(TAxisDir dir, const TRange &range)
{
    if (ranges(dir).isEmpty())
        ranges(dir).showAll(axis(dir).getFullScale());
    return ranges(dir).hide(range);
}

void TBasePlot::showRange(TAxisDir dir, const TRange &range)
{
    const TRange full = axis(dir).getFullScale();
    const TRange inside(std::max(range.lo(), full.lo()), std::min(range.hi(), full.hi()));
    if (inside.a < inside.b && !ranges(dir).isEmpty())
        ranges(dir).show(inside);
}

void TBasePlot::panMove(TAxisDir dir, double canvasUnits)
{
    if (dir == horzDir)
        panMoveHorz(canvasUnits);
    else
        panMoveVert(canvasUnits);
}

void TBasePlot::panMoveHorz(double canvasUnits)
{
    pan(horzDir, canvasUnits);
}

void TBasePlot::panMoveVert(double canvasUnits)
{
    pan(vertDir, canvasUnits);
}

void TBasePlot::pan(TAxisDir dir, double canvasUnits)
{
    // the gap of a cut that comes into view would change the density on the way, so it does not count
    const QRectF area = plotter()->adjustedPlotArea();
    double visible = 0.0;
    for (const TRange &piece : plotter()->drawnRanges(dir).adjustTo(axis(dir).drawnScale()).toVector())
        visible += piece.span();
    const double density = (dir == horzDir ? area.width() : area.height()) / visible;
    if (!(visible > 0.0) || !(density > 0.0) || !std::isfinite(canvasUnits))
        return;
    // curves that move right bring lower values into view on an axis that rises to the right
    const TRange scale = axis(dir).getScale();
    const double distance = (scale.isReversed() ? 1.0 : -1.0) * canvasUnits / density;
    const TRanges gaps = ranges(dir).invert(axis(dir).getFullScale());
    setScale(dir, movedVisibly(scale.a, distance, gaps), movedVisibly(scale.b, distance, gaps));
}

void TBasePlot::changeIntensity(bool up, double factor)
{
    double used = factor * cDefIntensityFactor;
    if (!up)
        used = 1.0 / used;
    if (!(used > 0.0) || !std::isfinite(used))
        return;
    TAxis &measured = curveAxis();
    const double base = plotter()->baselineScaleValue();
    const TRange before = measured.getFullScale();
    TAxis scaled = measured;
    scaled.setFullScale(before.a - base, before.b - base);
    scaled.setScale(measured.getScale().a - base, measured.getScale().b - base);
    scaled.applyScaleFactor(used);
    fIntensityFactor *= used;
    measured.setFullScale(scaled.getFullScale().a + base, scaled.getFullScale().b + base);
    measured.setScale(scaled.getScale().a + base, scaled.getScale().b + base);
    curveRanges().encloseIn(before, measured.getFullScale());
}

void TBasePlot::saveIntensityScale(TDataStream &stream) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    curveAxis().store(stream);
    curveRanges().store(stream);
    stream << fIntensityFactor;
    block.endStore();
}

void TBasePlot::loadIntensityScale(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        TAxis read = curveAxis();
        read.load(stream);
        TRanges visible = curveRanges();
        visible.load(stream);
        double factor = fIntensityFactor;
        stream >> factor;
        if (stream.isGood() && std::isfinite(factor) && factor > 0.0) {
            curveAxis().setFullScale(read.getFullScale().a, read.getFullScale().b);
            curveAxis().setScale(read.getScale().a, read.getScale().b);
            curveRanges() = visible;
            fIntensityFactor = factor;
        }
    }
    block.skipData();
}

double TBasePlot::viewReach(double pixels, double withoutView) const
{
    return fViewScale > 0.0 ? pixels / fViewScale : withoutView;
}
