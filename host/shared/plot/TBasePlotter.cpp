#include "plot/TBasePlotter.h"
#include "plot/ColorUtils.h"
#include "plot/PainterUtils.h"
#include "plot/TBasePlot.h"
#include "plot/TTitleProperties.h"
#include "plot/TTypesetter.h"
#include <QPainter>
#include <cmath>
#include <limits>

namespace {

const QUuid cPlotterId(QStringLiteral("{6f0c2f1a-5a1e-5e0b-9c3d-2f6f1a7f6b01}"));

int slot(TAxisDir dir)
{
    return dir == horzDir ? 0 : 1;
}

} // namespace

TBasePlotter::TBasePlotter(TBasePlot *plot)
    : fPlot(plot)
{
}

TBasePlotter::~TBasePlotter() = default;

QUuid TBasePlotter::id() const
{
    return cPlotterId;
}

const TBasePlotProperties &TBasePlotter::properties() const
{
    return fPlot->properties();
}

const TAxis &TBasePlotter::horzAxis() const
{
    return fPlot->horzAxis();
}

const TAxis &TBasePlotter::vertAxis() const
{
    return fPlot->vertAxis();
}

const TRanges &TBasePlotter::horzRanges() const
{
    return fPlot->horzRanges();
}

const TRanges &TBasePlotter::vertRanges() const
{
    return fPlot->vertRanges();
}

void TBasePlotter::setStackMatrix(int) {}

void TBasePlotter::unsetStackMatrix()
{
    fRow = TStackRow();
}

QTransform TBasePlotter::getStackMatrix() const
{
    const QRectF whole = getPlotCurvesRect();
    if (fRow.row < 0 || whole.isEmpty())
        return QTransform();
    QTransform matrix;
    matrix.translate(fRow.rect.left(), fRow.rect.top());
    matrix.scale(fRow.rect.width() / whole.width(), fRow.rect.height() / whole.height());
    matrix.translate(-whole.left(), -whole.top());
    return matrix;
}

QRectF TBasePlotter::adjustedPlotArea() const
{
    return fRow.row < 0 ? getPlotCurvesRect() : fRow.rect;
}

QPointF TBasePlotter::canvasItem2Plot(const QPointF &pos) const
{
    return getStackMatrix().inverted().map(pos);
}

QPointF TBasePlotter::canvasPlot2Item(const QPointF &pos) const
{
    return getStackMatrix().map(pos);
}

QVector<QRectF> TBasePlotter::clippingRanges() const
{
    QVector<QRectF> rects;
    for (const TAxisMap::TPiece &vert : axisMap(vertDir).pieces()) {
        for (const TAxisMap::TPiece &horz : axisMap(horzDir).pieces())
            rects.append(QRectF(QPointF(horz.places.a, vert.places.a), QPointF(horz.places.b, vert.places.b)));
    }
    return rects;
}

TPlotPlace TBasePlotter::whereIsMouse(const QPointF &pos) const
{
    const QRectF curves = getPlotCurvesRect();
    if (curves.contains(pos))
        return placeInCurves;
    if (getAxisRect(horzDir, curves).contains(pos) || secondAxisRect().contains(pos))
        return placeOnHorzAxis;
    if (getAxisRect(vertDir, curves).contains(pos))
        return placeOnVertAxis;
    return fPlot->rect().contains(pos) ? placeOnRim : placeOutside;
}

void TBasePlotter::holdLayout()
{
    fIsHeld = false;
    fHeldRect = getPlotCurvesRect();
    fIsHeld = true;
}

QColor TBasePlotter::ink(const QColor &color) const
{
    if (fPlot->stateWord() & TBasePlot::cDarkPaper)
        return Utils::Color::onDarkPaper(color);
    return fPlot->stateWord() & TBasePlot::cBlackAndWhite ? Utils::Color::inBlack(color) : color;
}

QColor TBasePlotter::paper() const
{
    const QColor &background = properties().background;
    return background.isValid() && fPlot->stateWord() & TBasePlot::cDarkPaper ? Utils::Color::cDarkPaper : background;
}

QColor TBasePlotter::textPaper() const
{
    constexpr double cPaperAlpha = 0.7;
    QColor color = paper();
    if (!color.isValid())
        color = fPlot->stateWord() & TBasePlot::cDarkPaper ? Utils::Color::cDarkPaper : QColor(Qt::white);
    color.setAlphaF(cPaperAlpha);
    return color;
}

QRectF TBasePlotter::getPlotCurvesRect() const
{
    return isLayoutHeld() ? heldCurvesRect() : untitledCurvesRect();
}

bool TBasePlotter::TLayoutKey::operator==(const TLayoutKey &other) const
{
    for (const TAxisDir dir : {horzDir, vertDir}) {
        const int i = slot(dir);
        if (axes[i] != other.axes[i] || ranges[i] != other.ranges[i] || titles[i] != other.titles[i] ||
            numbers[i] != other.numbers[i])
            return false;
    }
    return rect == other.rect && secondTitle == other.secondTitle && properties == other.properties;
}

QRectF TBasePlotter::untitledCurvesRect() const
{
    const TLayoutKey key{fPlot->rect(),
                         {fPlot->horzAxis(), fPlot->vertAxis()},
                         {fPlot->horzRanges(), fPlot->vertRanges()},
                         {fPlot->axisTitle(horzDir), fPlot->axisTitle(vertDir)},
                         {fPlot->hasNumbers(horzDir), fPlot->hasNumbers(vertDir)},
                         fPlot->hasSecondAxis() ? fPlot->secondAxisTitle() : QString(),
                         fPlot->properties()};
    if (!(key == fLayoutKey)) {
        fLayoutKey = key;
        fLayoutRect = computedCurvesRect();
    }
    return fLayoutRect;
}

double TBasePlotter::titleLineHeight(const TTitleProperties &title)
{
    const TTypesetter typesetter(Utils::Painter::fontSizeInPixels(title.font));
    return typesetter.height();
}

int TBasePlotter::titleLines(const TTitleProperties &title, double length) const
{
    const QString text = fPlot->titleText();
    if (text.isNull())
        return 1;
    return TTypesetter(Utils::Painter::fontSizeInPixels(title.font)).wrapped(text, length, 2).size();
}

double TBasePlotter::getTitleSpace(const TTitleProperties &title) const
{
    if (!title.visible || title.position == titleInside)
        return 0.0;
    const QRectF rect = fPlot->rect();
    const int lines = titleLines(title, title.position == titleOnTop ? rect.width() : rect.height());
    return lines == 0 ? 0.0 : lines * titleLineHeight(title) + cTitleGap;
}

QMarginsF TBasePlotter::titleMargins(const TTitleProperties &title) const
{
    const double space = getTitleSpace(title);
    switch (title.position) {
    case titleAtLeft:
        return QMarginsF(space, 0.0, 0.0, 0.0);
    case titleAtRight:
        return QMarginsF(0.0, 0.0, space, 0.0);
    case titleInside:
        return QMarginsF();
    default:
        return QMarginsF(0.0, space, 0.0, 0.0);
    }
}

QRectF TBasePlotter::getTitleRect(const TTitleProperties &title) const
{
    const QRectF curves = getPlotCurvesRect();
    const double margin = properties().plotAreaMargin;
    const QRectF area = curves.adjusted(-margin, -margin, margin, margin);
    const double space = getTitleSpace(title);
    QRectF rect;
    switch (title.position) {
    case titleAtLeft: {
        const double strip = getAxisRect(vertDir, curves).width();
        const double right = area.left() - (fPlot->vertAxis().posPolicy() == axisAtRight ? 0.0 : strip) - cTitleGap;
        rect = QRectF(right - (space - cTitleGap), area.top(), space - cTitleGap, area.height());
        break;
    }
    case titleAtRight: {
        const double strip = getAxisRect(vertDir, curves).width();
        const double left = area.right() + (fPlot->vertAxis().posPolicy() == axisAtRight ? strip : 0.0) + cTitleGap;
        rect = QRectF(left, area.top(), space - cTitleGap, area.height());
        break;
    }
    case titleInside:
        rect = QRectF(curves.left(), curves.top(), curves.width(),
                      titleLines(title, curves.width()) * titleLineHeight(title));
        break;
    default: {
        const QRectF strip = getAxisRect(horzDir, curves);
        const bool axisAbove = fPlot->horzAxis().posPolicy() == axisAtTop && !strip.isEmpty();
        double bottom = (axisAbove ? strip.top() : area.top()) - cTitleGap;
        if (!axisAbove)
            bottom -= std::max(exponentRoom(), secondStripThickness());
        rect = QRectF(area.left(), bottom - (space - cTitleGap), area.width(), space - cTitleGap);
    }
    }
    return rect.translated(title.offset);
}

TRanges TBasePlotter::drawnRanges(TAxisDir dir) const
{
    const TRange scale = axis(dir).drawnScale();
    const TRange full = axis(dir).getFullScale();
    TRanges drawn = ranges(dir);
    if (drawn.isEmpty())
        return drawn;
    if (scale.lo() < full.lo())
        drawn.appendRange(TRange(scale.lo(), full.lo()));
    if (scale.hi() > full.hi())
        drawn.appendRange(TRange(full.hi(), scale.hi()));
    return drawn;
}

const TAxisMap &TBasePlotter::axisMap(TAxisDir dir) const
{
    const QRectF area = adjustedPlotArea();
    const TRange places = dir == horzDir ? TRange(area.left(), area.right()) : TRange(area.bottom(), area.top());
    const int i = slot(dir);
    const TMapKey key{axis(dir).drawnScale(), axis(dir).getFullScale(), ranges(dir), places};
    if (!(key == fMapKeys[i])) {
        fMapKeys[i] = key;
        fMaps[i] = TAxisMap(drawnRanges(dir), key.scale, places.a, places.b, cCutGap);
    }
    return fMaps[i];
}

bool TBasePlotter::scale2Canvas(TAxisDir dir, double value, double &place) const
{
    return axisMap(dir).toPlace(value, place);
}

QPointF TBasePlotter::scale2Canvas(const QPointF &pos) const
{
    double x = std::numeric_limits<double>::quiet_NaN();
    double y = std::numeric_limits<double>::quiet_NaN();
    scale2Canvas(horzDir, pos.x(), x);
    scale2Canvas(vertDir, pos.y(), y);
    return QPointF(x, y);
}

double TBasePlotter::canvas2Scale(TAxisDir dir, double place) const
{
    return axisMap(dir).toValue(place);
}

QPointF TBasePlotter::canvas2Scale(const QPointF &pos) const
{
    return QPointF(canvas2Scale(horzDir, pos.x()), canvas2Scale(vertDir, pos.y()));
}

QVector<TRange> TBasePlotter::rangesToCanvasUnits(TAxisDir dir, const TRanges &visible, double from, double to) const
{
    const TRange scale = axis(dir).drawnScale();
    const TRange places(std::min(from, to), std::max(from, to));
    const TAxisMap map = dir == horzDir ? TAxisMap(drawnRanges(dir), scale, places.a, places.b, cCutGap)
                                        : TAxisMap(drawnRanges(dir), scale, places.b, places.a, cCutGap);
    QVector<TRange> result;
    for (const TRange &range : visible.toVector()) {
        double first = 0.0;
        double last = 0.0;
        if (map.toPlace(range.a, first) && map.toPlace(range.b, last))
            result.append(TRange(first, last).sorted());
        else
            result.append(TRange());
    }
    return result;
}

void TBasePlotter::appendCorrectedLine(QVector<QLineF> &lines, const QPointF &p, const QPointF &q, const QRectF &clip)
{
    const double dx = q.x() - p.x();
    const double dy = q.y() - p.y();
    if (!std::isfinite(dx) || !std::isfinite(dy)) // holds for both ends: a difference keeps NaN and infinity
        return;
    double enter = 0.0;
    double leave = 1.0;
    const double steps[4] = {-dx, dx, -dy, dy};
    const double rooms[4] = {p.x() - clip.left(), clip.right() - p.x(), p.y() - clip.top(), clip.bottom() - p.y()};
    for (int side = 0; side < 4; ++side) {
        if (steps[side] == 0.0) {
            if (rooms[side] < 0.0)
                return;
            continue;
        }
        const double at = rooms[side] / steps[side];
        if (steps[side] < 0.0)
            enter = std::max(enter, at);
        else
            leave = std::min(leave, at);
    }
    if (enter > leave)
        return;
    const QPointF first = enter > 0.0 ? QPointF(p.x() + enter * dx, p.y() + enter * dy) : p;
    const QPointF last = leave < 1.0 ? QPointF(p.x() + leave * dx, p.y() + leave * dy) : q;
    lines.append(QLineF(first, last));
}

void TBasePlotter::drawHandlers(QPainter &painter, const QVector<QRectF> &rects, bool filled) const
{
    painter.save();
    const QColor &color = Utils::Color::cSelectionColors.first();
    painter.setPen(QPen(color, TBasePlotProperties::cDefPenWidth));
    painter.setBrush(filled ? QBrush(color) : QBrush(Qt::white));
    painter.drawRects(rects);
    painter.restore();
}

void TBasePlotter::drawCrosshairs(QPainter &painter, const QPointF &pos, int mode) const
{
    const QRectF rect = getPlotCurvesRect();
    if (!rect.contains(pos))
        return;
    painter.save();
    painter.setPen(QPen(Utils::Color::cSelectionColors.first(), TBasePlotProperties::cDefPenWidth));
    if (mode & 1)
        painter.drawLine(QPointF(pos.x(), rect.top()), QPointF(pos.x(), rect.bottom()));
    if (mode & 2)
        painter.drawLine(QPointF(rect.left(), pos.y()), QPointF(rect.right(), pos.y()));
    painter.restore();
}

void TBasePlotter::drawCrosshairExt(QPainter &painter, const QPointF &scalePos, const QString &text) const
{
    const QPointF pos = scale2Canvas(scalePos);
    if (!std::isfinite(pos.x()) || !std::isfinite(pos.y()))
        return;
    drawCrosshairs(painter, pos, cBothDirs);
    if (text.isEmpty())
        return;
    const TTypesetter typesetter(Utils::Painter::fontSizeInPixels(properties().axesFont));
    painter.save();
    painter.setPen(Utils::Color::cSelectionColors.first());
    typesetter.draw(painter, pos + QPointF(6.0, -6.0), text);
    painter.restore();
}

void TBasePlotter::drawSelectedStackedMark(QPainter &, int, const QVector<int> &, const QVector<int> &) const {}
