#include "plot/T1DStackedBasePlotter.h"
#include "plot/ColorUtils.h"
#include "plot/PainterUtils.h"
#include "plot/T1DLabelArranger.h"
#include "plot/T1DStackedPlot.h"
#include "plot/TTitleProperties.h"
#include "plot/TTypesetter.h"
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

const QUuid cPlotterId(QStringLiteral("{b7a0c0c3-3a0b-5f6b-8f43-6d8d2c9f1d03}"));
constexpr double cDegree = 3.14159265358979323846 / 180.0;
constexpr double cMarkSize = 24.0;      // of the mark beside the active row
constexpr double cSmallMarkSize = 14.0; // of those beside the other selected rows
constexpr double cTitleOverrun = 1.6;   // by which a title over a column may be shortened
constexpr double cClearPitch = 1.5;     // of a title's height: rows further apart leave its place free
constexpr double cTitleInset = 8.0;     // between a row's title and the right end
constexpr double cMaxTitleShare = 0.25; // of the item's width, for titles beside rows
constexpr double cFadedAlpha = 0.45;    // of curves that are not selected
// lengths of dash and gap, then dot and gap; one pen width counts as 3.5
const QVector<qreal> cDashCues[] = {
    {}, {12.0 / 3.5, 6.0 / 3.5}, {3.0 / 3.5, 5.0 / 3.5}, {12.0 / 3.5, 5.0 / 3.5, 3.0 / 3.5, 5.0 / 3.5}};
constexpr int cDashCueCount = 4;
constexpr double cWideColumn = 4.0; // widths of a number, under which a column goes without numbers

void setDashCue(QPen &pen, int number)
{
    const QVector<qreal> &cue = cDashCues[number % cDashCueCount];
    if (cue.isEmpty())
        return;
    pen.setDashPattern(cue);
    pen.setCapStyle(Qt::FlatCap);
}

/// Whether rows are so near to each other that one further right reaches over the end of the one in front of it.
bool areDense(const T1DStackedBasePlotter &plotter, double titleHeight)
{
    if (plotter.rowCount() < 2)
        return false;
    const double pitch = plotter.getArrayedCurveRect(0).bottom() - plotter.getArrayedCurveRect(1).bottom();
    return std::fabs(pitch) < cClearPitch * titleHeight;
}

} // namespace

T1DStackedBasePlotter::T1DStackedBasePlotter(T1DStackedPlot *plot)
    : T1DBasePlotter(plot)
    , fStackedPlot(plot)
{
}

QUuid T1DStackedBasePlotter::id() const
{
    return cPlotterId;
}

const T1DStackedPlotProperties &T1DStackedBasePlotter::stackedProperties() const
{
    return fStackedPlot->stackedProperties();
}

const TAxis &T1DStackedBasePlotter::vertAxis() const
{
    return stackRow().row >= 0 ? fStackedPlot->intensityAxis() : fStackedPlot->vertAxis();
}

const TRanges &T1DStackedBasePlotter::vertRanges() const
{
    return stackRow().row >= 0 ? fStackedPlot->intensityRanges() : fStackedPlot->vertRanges();
}

bool T1DStackedBasePlotter::hasTitlePerCurve(const TTitleProperties &title) const
{
    return fStackedPlot->isArrayed() && title.stacked && title.position == titleOnTop &&
           (fStackedPlot->isStacked() || fStackedPlot->isQueued() || fStackedPlot->isGrouped());
}

/// Where each curve has a title of its own, none stands above the plot.
double T1DStackedBasePlotter::getTitleSpace(const TTitleProperties &title) const
{
    return hasTitlePerCurve(title) ? 0.0 : T1DBasePlotter::getTitleSpace(title);
}

QMarginsF T1DStackedBasePlotter::titleMargins(const TTitleProperties &title) const
{
    if (!hasTitlePerCurve(title) || !title.visible)
        return T1DBasePlotter::titleMargins(title);
    const TTypesetter typesetter(Utils::Painter::fontSizeInPixels(title.font));
    const QStringList texts = fStackedPlot->rowTitles();
    if (fTitleWidth.texts != texts || fTitleWidth.font != title.font) {
        fTitleWidth = {texts, title.font, 0.0};
        for (const QString &text : texts)
            fTitleWidth.widest = std::max(fTitleWidth.widest, typesetter.width(text));
    }
    const double widest = fTitleWidth.widest;
    if (widest == 0.0)
        return QMarginsF();
    if (fStackedPlot->isQueued())
        return QMarginsF(0.0, typesetter.height(), 0.0, 0.0);
    return QMarginsF(0.0, 0.0, std::min(widest, cMaxTitleShare * fStackedPlot->rect().width()), 0.0);
}

void T1DStackedBasePlotter::setStackMatrix(int row)
{
    unsetStackMatrix();
    if (row < 0 || row >= fRowCount || !fStackedPlot->isArrayed()) // a single curve keeps to the axes as they stand
        return;
    if (fStackedPlot->isQueued())
        setStackRow({row, columnRect(row)});
    else if (fStackedPlot->isStacked() || fStackedPlot->isGrouped())
        setStackRow({row, rowRect(row, false)});
}

QRectF T1DStackedBasePlotter::curveClip() const
{
    const QRectF own = adjustedPlotArea();
    const QRectF whole = getPlotCurvesRect();
    return stackRow().row < 0 ? own : QRectF(own.left(), whole.top(), own.width(), whole.height());
}

QRectF T1DStackedBasePlotter::adjustedPlotArea() const
{
    QRectF area = T1DBasePlotter::adjustedPlotArea();
    if (stackRow().row < 0 && fStackedPlot->hasRows()) {
        const int rows = fRowCount > 0 ? fRowCount : fStackedPlot->drawnRows();
        area.setWidth(area.width() - (rows - 1) * rowStep(rows));
    }
    return area;
}

/// What of the stack index is shown: zoomed, as long as the axis counts these rows.
TRange T1DStackedBasePlotter::shownRows(int rows) const
{
    const TAxis &axis = fStackedPlot->stackIndexAxis();
    const bool countsThem = axis.getFullScale().lo() == 0.0 && axis.getFullScale().hi() == rows;
    return fStackedPlot->hasRows() && countsThem ? axis.drawnScale().sorted() : TRange(0.0, rows);
}

double T1DStackedBasePlotter::rowPitch(int rows) const
{
    const T1DStackedPlotProperties &stacked = stackedProperties();
    const double height = getPlotCurvesRect().height() * (1.0 - stacked.topMargin() - stacked.bottomMargin());
    return height / shownRows(rows).span();
}

/// How far each row stands right of the one in front of it.
double T1DStackedBasePlotter::rowStep(int rows) const
{
    if (rows < 2 || fStackedPlot->isGrouped())
        return 0.0;
    const double skewed = rowPitch(rows) * std::tan(stackedProperties().angle() * cDegree);
    return std::min(skewed, 0.5 * getPlotCurvesRect().width() / (rows - 1));
}

/// `pitchOnly`: the band of the row; else what the intensity scale fills.
QRectF T1DStackedBasePlotter::rowRect(int row, bool pitchOnly) const
{
    const T1DStackedPlotProperties &stacked = stackedProperties();
    const QRectF whole = getPlotCurvesRect();
    const double pitch = rowPitch(fRowCount);
    const double step = rowStep(fRowCount);
    const double foot =
        whole.bottom() - stacked.bottomMargin() * whole.height() - (row - shownRows(fRowCount).a) * pitch;
    const double filled = pitchOnly ? pitch : pitch * 100.0 / stacked.spacing();
    return QRectF(whole.left() + row * step, foot - filled, whole.width() - (fRowCount - 1) * step, filled);
}

QRectF T1DStackedBasePlotter::columnRect(int column) const
{
    const QRectF whole = getPlotCurvesRect();
    const double gap = std::min(cQueueGap, 0.5 * whole.width() / fRowCount);
    const double width = (whole.width() - gap * (fRowCount - 1)) / fRowCount;
    return QRectF(whole.left() + column * (width + gap), whole.top(), width, whole.height());
}

QRectF T1DStackedBasePlotter::getArrayedCurveRect(int row) const
{
    if (row < 0 || row >= fRowCount)
        return getPlotCurvesRect();
    if (fStackedPlot->isQueued())
        return columnRect(row);
    return fStackedPlot->isStacked() || fStackedPlot->isGrouped() ? rowRect(row, true) : getPlotCurvesRect();
}

/// The rank of each place among them, of equal ones the first first.
QVector<int> T1DStackedBasePlotter::ranked(const QVector<int> &places) const
{
    QVector<int> sorted(places.size());
    std::iota(sorted.begin(), sorted.end(), 0);
    std::stable_sort(sorted.begin(), sorted.end(), [&](int l, int r) { return places.at(l) < places.at(r); });
    QVector<int> ranks(places.size());
    for (int rank = 0; rank < sorted.size(); ++rank)
        ranks[sorted.at(rank)] = rank;
    return ranks;
}

void T1DStackedBasePlotter::beginRows(int count)
{
    unsetStackMatrix();
    fRowCount = count;
    fDrawnIds = fStackedPlot->drawnIds();
    if (!(fStackedPlot->stateWord() & TBasePlot::cKeepHotAreas))
        fPointable.clear();
}

QPen T1DStackedBasePlotter::arrayedPen(int order, double widthFactor) const
{
    QPen pen = properties().curvePen;
    const QColor own = stackedProperties().arrayedColor(order);
    if (own.isValid())
        pen.setColor(own);
    if (fStackedPlot->lineStyle(order) != Qt::SolidLine)
        pen.setStyle(fStackedPlot->lineStyle(order));
    const bool isPalette = Utils::Color::paletteIndex(pen.color()) >= 0 &&
                           stackedProperties().colorSetting() == hueSetting &&
                           stackedProperties().colorMode() == paletteColors;
    const bool inBlack = fStackedPlot->stateWord() & TBasePlot::cBlackAndWhite;
    // beyond that every pair of colour and dashes has been used
    const bool isFew = stackedProperties().colors().size() <= cDashCueCount * Utils::Color::cPaletteSize;
    if (pen.style() == Qt::SolidLine && order >= 0 && isFew && (inBlack || isPalette))
        setDashCue(pen, inBlack ? order : order / Utils::Color::cPaletteSize);
    pen.setWidthF(pen.widthF() * widthFactor);
    return pen;
}

TCurveChange T1DStackedBasePlotter::changeOf(int curve) const
{
    TCurveChange change;
    if (curve >= 0 && curve < fDrawnIds.size()) {
        change.factorY = stackedProperties().factor(fDrawnIds.at(curve));
        change.offset = stackedProperties().offset(fDrawnIds.at(curve));
    }
    return change;
}

void T1DStackedBasePlotter::drawMember(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                                       int curve, int order, TCurveStyle style)
{
    const bool isView = !(fStackedPlot->stateWord() & TBasePlot::cKeepHotAreas);
    if (isView && stackedProperties().fadesUnused() && fStackedPlot->isFaded(order)) {
        QColor faded = style.pen.color();
        faded.setAlphaF(faded.alphaF() * cFadedAlpha);
        style.pen.setColor(faded);
    }
    TPointable pointable{order, {}};
    drawCurve(painter, x, y, style, changeOf(curve), isView ? &pointable.parts : nullptr);
    if (isView)
        fPointable.append(pointable);
}

void T1DStackedBasePlotter::drawLone(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                                     int order)
{
    const bool isView = !(fStackedPlot->stateWord() & TBasePlot::cKeepHotAreas);
    beginRows(0);
    TPointable pointable{order, {}};
    plot1DXY(painter, x, y, isView ? &pointable.parts : nullptr);
    if (isView)
        fPointable.append(pointable);
}

void T1DStackedBasePlotter::drawPointedCurve(QPainter &painter, int order) const
{
    const QPen pen = arrayedPen(order, stackedProperties().activePenWidthFactor());
    for (const TPointable &pointable : fPointable) {
        if (pointable.order != order)
            continue;
        for (const TDrawnCurve &part : pointable.parts)
            TCurvePainter::drawAgain(painter, part, pen);
    }
}

void T1DStackedBasePlotter::drawOverlay(QPainter &painter, const TSeries &xs, const TSeries &ys,
                                        const QVector<int> &orders, int active)
{
    beginRows(0);
    const int count = std::min({xs.size(), ys.size(), orders.size()});
    int last = -1;
    TCurveLayer layer;
    if (count >= TCurveLayer::cWorthIt)
        setLayer(&layer);
    for (int i = 0; i < count; ++i) {
        if (orders.at(i) == active)
            last = i;
        else
            drawMember(painter, xs.at(i), ys.at(i), i, orders.at(i), styleOf(arrayedPen(orders.at(i), 1.0)));
    }
    setLayer(nullptr);
    layer.paint(painter);
    if (last >= 0)
        drawMember(painter, xs.at(last), ys.at(last), last, active,
                   styleOf(arrayedPen(active, stackedProperties().activePenWidthFactor())));
}

void T1DStackedBasePlotter::drawActive(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                                       int active)
{
    beginRows(0);
    drawMember(painter, x, y, -1, active, styleOf(arrayedPen(active, 1.0)));
}

void T1DStackedBasePlotter::drawStack(QPainter &painter, const TSeries &xs, const TSeries &ys,
                                      const QVector<int> &orders, bool whiteWash, const QVector<int> &places)
{
    const int count = std::min({xs.size(), ys.size(), orders.size()});
    beginRows(count);
    const QVector<int> rows = ranked((places.size() < count ? orders : places).mid(0, count));
    QVector<int> curveOfRow(count);
    for (int i = 0; i < count; ++i)
        curveOfRow[rows.at(i)] = i;
    TCurveLayer layer;
    if (count >= TCurveLayer::cWorthIt && !whiteWash)
        setLayer(&layer);
    for (int row = count - 1; row >= 0; --row) { // the lowest row stands at the front
        const int i = curveOfRow.at(row);
        TCurveStyle style = styleOf(arrayedPen(orders.at(i), 1.0));
        if (whiteWash) {
            style.fill = textPaper();
            style.fill.setAlpha(255);
            style.fillBase = getPlotCurvesRect().bottom(); // below everything that a row may cover
        }
        setStackMatrix(row);
        drawMember(painter, xs.at(i), ys.at(i), i, orders.at(i), style);
    }
    setLayer(nullptr);
    layer.paint(painter);
    unsetStackMatrix();
}

void T1DStackedBasePlotter::drawQueue(QPainter &painter, const TSeries &xs, const TSeries &ys,
                                      const QVector<int> &orders, const QVector<int> &places)
{
    const int count = std::min({xs.size(), ys.size(), orders.size()});
    beginRows(count);
    const QVector<int> columns = ranked((places.size() < count ? orders : places).mid(0, count));
    for (int i = 0; i < count; ++i) {
        setStackMatrix(columns.at(i));
        drawMember(painter, xs.at(i), ys.at(i), i, orders.at(i), styleOf(arrayedPen(orders.at(i), 1.0)));
    }
    unsetStackMatrix();
}

void T1DStackedBasePlotter::drawGroupedStack(QPainter &painter, const TGroups &groups)
{
    beginRows(groups.size());
    int curve = 0; // behind the last one of the row
    for (const QVector<TGroupMember> &group : groups)
        curve += group.size();
    for (int row = groups.size() - 1; row >= 0; --row) {
        setStackMatrix(row);
        curve -= groups.at(row).size();
        for (int i = 0; i < groups.at(row).size(); ++i) {
            const TGroupMember &member = groups.at(row).at(i);
            drawMember(painter, member.x, member.y, curve + i, member.order, styleOf(member.pen));
        }
    }
    unsetStackMatrix();
}

void T1DStackedBasePlotter::drawStackedTitles(QPainter &painter, const QStringList &texts, const QVector<int> &orders,
                                              const TTitleProperties &title, const QColor &color,
                                              QMap<int, QRectF> &rects, const QVector<int> &places) const
{
    const int count = std::min(texts.size(), orders.size());
    if (!title.visible || count == 0 || fRowCount == 0)
        return;
    const TTypesetter typesetter(Utils::Painter::fontSizeInPixels(title.font));
    const QVector<int> rows = ranked((places.size() < count ? orders : places).mid(0, count));
    const QRectF whole = getPlotCurvesRect();
    const double height = typesetter.height();
    const QMarginsF room = titleMargins(title);
    const bool isQueue = fStackedPlot->isQueued();

    // columns have their titles on top; in rows the labels are arranged along the height
    // no height leaves room for one title
    const int every = isQueue ? 1 : int(std::ceil(qBound(1.0, count * height / whole.height(), double(count))));
    T1DLabelArranger arranger(0.0);
    for (int i = 0; i < count; ++i) {
        const QRectF own = getArrayedCurveRect(rows.at(i));
        T1DLabelInfo label;
        label.index = i;
        label.text = texts.at(i);
        label.width = height;
        label.anchor = QPointF(own.bottom() - height / 2, 0.0);
        label.pos = (room.top() > 0.0 ? whole.top() - properties().plotAreaMargin - height : whole.top()) + height / 2;
        if (rows.at(i) % every == 0)
            arranger.append(label);
    }
    if (!isQueue)
        arranger.arrange(QRectF(whole.top(), 0.0, whole.height(), 1.0), T1DLabelArranger::horizontalText,
                         T1DLabelArranger::integralStrip);

    painter.save();
    for (const T1DLabelInfo &label : arranger.labels()) {
        const QRectF own = getArrayedCurveRect(rows.at(label.index));
        const double widest = !isQueue && room.right() > 0.0 ? room.right() : own.width() - 2 * cTitleInset;
        QStringList lines = typesetter.wrapped(label.text, widest, 1);
        if (isQueue && lines.value(0) != label.text && typesetter.width(label.text) > cTitleOverrun * widest)
            lines = QStringList(QString::number(rows.at(label.index) + 1));
        if ((!isQueue && !label.hasRoom) || lines.isEmpty())
            continue;
        const double width = typesetter.width(lines.first());
        double left = own.center().x() - width / 2;
        const double end = areDense(*this, height) ? whole.right() : own.right();
        if (!isQueue)
            left = room.right() > 0.0 ? end + cTitleInset : own.right() - width - cTitleInset;
        const QRectF rect(left, label.pos - height / 2, width, height);
        const int order = orders.at(label.index);
        if (room.isNull()) {
            painter.fillRect(rect, textPaper());
        }
        painter.setPen(ink(color.isValid() ? color : arrayedPen(order, 1.0).color()));
        typesetter.draw(painter, rect, Qt::AlignLeft | Qt::AlignTop, lines.first());
        rects.insert(order, rect);
    }
    painter.restore();
}

void T1DStackedBasePlotter::drawQueueAxes(QPainter &painter, int columns) const
{
    if (!fStackedPlot->horzAxis().isVisible())
        return;
    T1DStackedBasePlotter each(*this); // with columns of its own: the draw of the curves has not begun
    each.fRowCount = std::max(1, columns);
    const TTypesetter numbers(Utils::Painter::fontSizeInPixels(properties().axesFont));
    const double margin = properties().plotAreaMargin;
    const QRectF item = fStackedPlot->rect();
    for (int column = 0; column < each.fRowCount; ++column) {
        each.setStackMatrix(column);
        const QRectF rect = each.columnRect(column);
        const bool isFirst = column == 0;
        const bool isLast = column == each.fRowCount - 1;
        each.drawAxisLine(painter, horzDir,
                          TRange(rect.left() - (isFirst ? margin : 0.0), rect.right() + (isLast ? margin : 0.0)));
        const bool isWide = rect.width() > cWideColumn * numbers.width(QStringLiteral("0000"));
        QRectF room;
        if (isFirst || isWide)
            room = QRectF(isFirst ? item.left() : rect.left() - cQueueGap / 2, item.top(), 0.0, item.height());
        if (!room.isNull())
            room.setRight(isLast ? item.right() : rect.right() + cQueueGap / 2);
        each.drawTicks(painter, horzDir, room);
    }
    drawAxisTitle(painter, horzDir);
}

/// A mark beside each selected row, larger for the active one; a row of which only some are selected has a hollow one.
/// Where all are selected the active one alone has a mark.
void T1DStackedBasePlotter::drawSelectedStackedMark(QPainter &painter, int active, const QVector<int> &deselected,
                                                    const QVector<int> &groupSizes) const
{
    QVector<int> missing(fRowCount, 0); // deselected members of each row
    QVector<int> members(fRowCount, 1);
    for (int i = 0; i < deselected.size(); ++i) {
        const int row = deselected.at(i);
        if (row < 0 || row >= fRowCount)
            continue;
        ++missing[row];
        members[row] = std::max(1, groupSizes.value(i, 1));
    }
    const QColor &color = Utils::Color::cSelectionColors.first();
    painter.save();
    painter.setPen(QPen(color, TBasePlotProperties::cDefPenWidth));
    for (int row = 0; row < fRowCount; ++row) {
        const bool isActive = row == active;
        if (missing.at(row) >= members.at(row) || (deselected.isEmpty() && !isActive))
            continue;
        painter.setBrush(missing.at(row) > 0 ? QBrush(textPaper()) : QBrush(color));
        painter.drawPolygon(selectionMark(row, isActive ? cMarkSize : cSmallMarkSize));
    }
    painter.restore();
}

/// A triangle that points at the foot of a row, or down from the head of a column, below its title.
QPolygonF T1DStackedBasePlotter::selectionMark(int row, double size) const
{
    const QRectF band = getArrayedCurveRect(row);
    QPolygonF mark;
    if (fStackedPlot->isQueued()) {
        const QPointF tip(band.center().x(), band.top() + size);
        mark << tip << tip + QPointF(-size / 2, -size) << tip + QPointF(size / 2, -size);
    } else {
        const QPointF tip(getPlotCurvesRect().left() - properties().plotAreaMargin, band.bottom());
        mark << tip << tip + QPointF(-size, -size / 2) << tip + QPointF(-size, size / 2);
    }
    return mark;
}

int T1DStackedBasePlotter::indexOfPointedStackedCurve(const QPointF &pos) const
{
    const double reach = fStackedPlot->viewReach(cPointedReach, cPointedUnits);
    int found = -1;
    double nearest = reach;
    for (const TPointable &pointable : fPointable) {
        for (const TDrawnCurve &part : pointable.parts) {
            const double distance = part.distance(pos);
            if (distance >= 0.0 && distance <= nearest) { // of equals the one drawn last
                nearest = distance;
                found = pointable.order;
            }
        }
    }
    return found;
}
