#include "TMMActYrexBaselinePoints.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TMMActYrexMark.h"
#include "TYrexBaselinePointsModel.h"
#include "TYrexMultipointCurve.h"
#include "WYrexMultipointBaselineDock.h"
#include "YrexActionTables.h"
#include "plot/TPlotReadout.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "settings/TNumberFormat.h"

#include <QAbstractScrollArea>
#include <QActionGroup>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr double cReach = 8.0;   // pixels around a point
constexpr double cMinDrag = 4.0; // a shorter one is a click
constexpr int cKinds = 3;
constexpr int cLargeStep = 10;     // points of the spectrum
constexpr int cMaxSegments = 2000; // of the curve that would be
const QColor cBlue(0x1F, 0x5F, 0xD0);
const QColor cRed(0xD0, 0x2B, 0x2B);

void cross(QPainter &painter, const QPointF &place)
{
    constexpr double cArm = 7.0;
    painter.drawLine(place + QPointF(-cArm, -cArm), place + QPointF(cArm, cArm));
    painter.drawLine(place + QPointF(-cArm, cArm), place + QPointF(cArm, -cArm));
}

} // namespace

TMMActYrexBaselinePoints::TMMActYrexBaselinePoints(IPluginHost &host)
    : TMMAct(YrexModes::baselinePointsModeID)
    , fHost(host)
    , fCursor(TMMActYrexMark::cursorFrom(":/cursors/cursor-baseline-pick.png"))
{
}

WYrexMultipointBaselineDock *TMMActYrexBaselinePoints::dock() const
{
    return fHost.gui() ? qobject_cast<WYrexMultipointBaselineDock *>(fHost.gui()->dock(cMultipointDock)) : nullptr;
}

TYrexMultipointSession *TMMActYrexBaselinePoints::session() const
{
    TYrexMultipointSession *session = dock() && plot() ? dock()->session() : nullptr;
    return session && session->isAlive() ? session : nullptr;
}

TCanvasYrexSpectrum *TMMActYrexBaselinePoints::item() const
{
    return dock() ? dock()->editedItem() : nullptr;
}

T1DYrexPlot *TMMActYrexBaselinePoints::plot() const
{
    return item() && view() ? item()->activeYrexPlot() : nullptr;
}

QPointF TMMActYrexBaselinePoints::toData(const QPointF &viewPos) const
{
    const QPointF scale = item()->canvas2Scale(view()->itemToView(*item()).inverted().map(viewPos));
    return QPointF(session()->positionOf(scale.x(), plot()->xUnits()),
                   plot()->drawnHeights(item()->stack().current()).inverse(scale.y()));
}

QPointF TMMActYrexBaselinePoints::toView(double position, double value) const
{
    const double height = plot()->drawnHeights(item()->stack().current())(value);
    const QPointF scale(session()->xOf(position, plot()->xUnits()), height);
    return view()->itemToView(*item()).map(item()->scale2Canvas(scale));
}

/// Where the plot draws it, which in the preview is on the corrected level.
QPointF TMMActYrexBaselinePoints::shownPoint(int index) const
{
    const QVector<TYrexBaselinePoint> &points = session()->spectrum()->procParams().multipoint().points;
    const TYrexBaselinePoint point = points.value(index);
    return toView(point.x, point.y);
}

int TMMActYrexBaselinePoints::pointAt(const QPointF &viewPos) const
{
    int nearest = -1;
    double best = cReach;
    for (int i = 0; session() && i < session()->points().size(); ++i) {
        const QPointF away = shownPoint(i) - viewPos;
        const double distance = std::max(std::fabs(away.x()), std::fabs(away.y()));
        if (distance <= best) {
            best = distance;
            nearest = i;
        }
    }
    return nearest;
}

bool TMMActYrexBaselinePoints::isInCurves(const QPointF &viewPos) const
{
    const QPointF place = view()->itemToView(*item()).inverted().map(viewPos);
    return plot()->plotter()->getPlotCurvesRect().contains(place);
}

int TMMActYrexBaselinePoints::kindFor(Qt::KeyboardModifiers modifiers, int chosen)
{
    if (modifiers & Qt::ControlModifier)
        return TYrexMultipointSession::cFree;
    return modifiers & Qt::ShiftModifier ? int(TYrexMultipointSession::cAverage) : chosen;
}

QCursor TMMActYrexBaselinePoints::cursor(const TMouseSpot &spot) const
{
    if (!session() || spot.item != item())
        return QCursor(Qt::ArrowCursor);
    return pointAt(spot.viewPos) >= 0 ? QCursor(Qt::SizeAllCursor) : fCursor;
}

QString TMMActYrexBaselinePoints::hint() const
{
    return tr("Click adds a point, drag moves it, Alt+click removes it. Apply in the dock.");
}

QVector<int> TMMActYrexBaselinePoints::walk() const
{
    QVector<int> order(session() ? session()->points().size() : 0);
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [this](int l, int r) { return shownPoint(l).x() < shownPoint(r).x(); });
    return order;
}

bool TMMActYrexBaselinePoints::wantsKey(const QKeyEvent &event) const
{
    if (!session() || event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier))
        return false;
    if (fIsPressed) // other keys move the pointer, if they do the pressing
        return event.key() == Qt::Key_Delete;
    const int selected = dock()->selectedPoint();
    switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab: {
        const QVector<int> order = walk();
        return !order.isEmpty() && selected != (event.key() == Qt::Key_Tab ? order.last() : order.first());
    }
    case Qt::Key_Delete: // a shortcut of the window otherwise
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return selected >= 0;
    default:
        return false;
    }
}

bool TMMActYrexBaselinePoints::step(bool back)
{
    const QVector<int> order = walk();
    const int present = order.indexOf(dock()->selectedPoint());
    const int next = present < 0 ? (back ? order.size() - 1 : 0) : present + (back ? -1 : 1);
    if (next < 0 || next >= order.size())
        return false;
    dock()->selectPoint(order.at(next));
    const TYrexBaselinePoint &point = session()->points().at(order.at(next));
    TPlotReadout readout;
    readout.fMark = tr("Point %1").arg(pointText(point.x, point.y, point.kind));
    view()->showReadout(readout);
    view()->updateOverlay();
    return true;
}

bool TMMActYrexBaselinePoints::showKeyMenu()
{
    const auto *area = dynamic_cast<QAbstractScrollArea *>(view());
    const int selected = session() ? dock()->selectedPoint() : -1;
    if (!area || selected < 0)
        return false;
    showMenu(selected, area->viewport()->mapToGlobal(shownPoint(selected).toPoint()));
    return true;
}

bool TMMActYrexBaselinePoints::cancelGesture()
{
    fIsPressed = false;
    fIsLeaving = false;
    const TDrag drag = fDrag;
    fDrag = cNone;
    fPoint = -1;
    TYrexMultipointSession *session = this->session();
    if (!session)
        return drag != cNone;
    if (drag == cPoint) {
        session->cancelDrag();
        dock()->showEdit();
    } else if (drag == cNone) {
        dock()->selectPoint(-1);
    }
    view()->updateOverlay();
    return true;
}

bool TMMActYrexBaselinePoints::mousePress(QMouseEvent *event, const TMouseSpot &spot)
{
    if (!session() || spot.item != item())
        return false;
    if (event->button() == Qt::RightButton) {
        if (fDrag != cNone)
            return cancelGesture();
        const int index = pointAt(spot.viewPos);
        if (index >= 0)
            showMenu(index, event->globalPos());
        return index >= 0;
    }
    return event->button() == Qt::LeftButton && press(*event, spot);
}

bool TMMActYrexBaselinePoints::press(const QMouseEvent &event, const TMouseSpot &spot)
{
    fPoint = pointAt(spot.viewPos);
    if (fPoint < 0 && !isInCurves(spot.viewPos))
        return false;
    if (fPoint >= 0 && event.modifiers() & Qt::AltModifier) {
        remove(fPoint);
        fPoint = -1;
        return true;
    }
    fIsPressed = true;
    fFrom = fTo = spot.viewPos;
    if (fPoint >= 0) {
        fGrab = shownPoint(fPoint) - spot.viewPos;
        dock()->selectPoint(fPoint);
    }
    return true;
}

bool TMMActYrexBaselinePoints::mouseMove(QMouseEvent *event, const TMouseSpot &spot)
{
    if (!session())
        return false;
    fTo = spot.viewPos;
    fModifiers = event->modifiers();
    fIsInside = isInCurves(fTo);
    if (fIsPressed && fDrag == cNone && (fTo - fFrom).manhattanLength() >= cMinDrag) {
        fDrag = fPoint >= 0 ? cPoint : cBand;
        if (fDrag == cPoint)
            session()->beginDrag();
    }
    if (fDrag == cPoint)
        dragPoint(fTo, fModifiers);
    else if (!fIsPressed)
        fHover = pointAt(fTo);
    view()->updateOverlay();
    return fIsPressed;
}

void TMMActYrexBaselinePoints::dragPoint(const QPointF &viewPos, Qt::KeyboardModifiers modifiers)
{
    fIsLeaving = !isInCurves(viewPos);
    const TYrexBaselinePoint &point = session()->points().at(fPoint);
    const QPointF place = toData(viewPos + fGrab);
    double y = point.y;
    if (point.kind == TYrexMultipointSession::cFree) // in the preview the height is one over the curve
        y = session()->isPreviewing() ? y : place.y();
    session()->movePoint(fPoint, modifiers & Qt::ShiftModifier ? point.x : place.x(), y);
    dock()->showEdit();
}

bool TMMActYrexBaselinePoints::mouseRelease(QMouseEvent *event, const TMouseSpot &spot)
{
    if (event->button() != Qt::LeftButton || !fIsPressed || !session())
        return false;
    fIsPressed = false;
    const TDrag drag = fDrag;
    const int point = fPoint;
    fDrag = cNone;
    fPoint = -1;
    if (drag == cPoint) {
        if (fIsLeaving)
            session()->removePoint(point);
        session()->endDrag();
    } else if (drag == cBand) {
        if (session()->addAutomaticPoints(toData(fFrom).x(), toData(spot.viewPos).x()) == 0)
            fHost.gui()->statusMessage(tr("No further flat places were found."));
    } else if (point < 0) {
        click(spot.viewPos, event->modifiers());
    }
    fIsLeaving = false;
    fHover = pointAt(spot.viewPos);
    dock()->showEdit();
    return true;
}

void TMMActYrexBaselinePoints::click(const QPointF &viewPos, Qt::KeyboardModifiers modifiers)
{
    const QPointF place = toData(viewPos);
    double y = place.y();
    const int index = qBound(0, qRound(place.x()), session()->stage().size() - 1);
    if (session()->isPreviewing() && !session()->curve().isEmpty())
        y += session()->stage().at(index) - session()->spectrum()->values().at(index);
    const int added = session()->addPoint(place.x(), y, kindFor(modifiers, dock()->kind()));
    dock()->showEdit();
    dock()->selectPoint(added);
}

bool TMMActYrexBaselinePoints::mouseDoubleClick(QMouseEvent *event, const TMouseSpot &spot)
{
    if (!session() || spot.item != item() || event->button() != Qt::LeftButton)
        return false;
    const int index = pointAt(spot.viewPos);
    if (index < 0)
        return isInCurves(spot.viewPos); // the first click has added one
    session()->setKind(index, session()->points().at(index).kind % cKinds + 1);
    dock()->showEdit();
    dock()->selectPoint(index);
    return true;
}

void TMMActYrexBaselinePoints::remove(int index)
{
    if (!session())
        return;
    session()->removePoint(index);
    fHover = -1;
    dock()->showEdit();
    dock()->selectPoint(-1);
}

bool TMMActYrexBaselinePoints::keyPress(QKeyEvent *event)
{
    if (!session() || !wantsKey(*event))
        return false;
    if (fIsPressed)
        return true; // a point is held by its number
    const int selected = dock()->selectedPoint();
    switch (event->key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return step(event->key() == Qt::Key_Backtab);
    case Qt::Key_Delete:
        remove(selected);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        dock()->editPlace(selected);
        return true;
    default:
        return moveSelected(event->key(), event->modifiers());
    }
}

bool TMMActYrexBaselinePoints::moveSelected(int key, Qt::KeyboardModifiers modifiers)
{
    const int selected = dock()->selectedPoint();
    const TYrexBaselinePoint point = session()->points().at(selected);
    const int step = modifiers & Qt::ShiftModifier ? cLargeStep : 1;
    const bool isAcross = key == Qt::Key_Left || key == Qt::Key_Right;
    if (!isAcross && key != Qt::Key_Up && key != Qt::Key_Down)
        return false;
    if (isAcross) {
        // to the side of the screen, whichever way the axis runs
        const bool isRight = toView(point.x + 1.0, point.y).x() > toView(point.x, point.y).x();
        session()->movePoint(selected, point.x + ((key == Qt::Key_Right) == isRight ? step : -step), point.y);
    } else if (point.kind == TYrexMultipointSession::cFree) {
        const QPointF place = toView(point.x, point.y);
        const QPointF target = place + QPointF(0.0, key == Qt::Key_Down ? step : -step);
        session()->movePoint(selected, point.x, toData(target).y());
    }
    dock()->showEdit();
    dock()->selectPoint(selected);
    return true;
}

void TMMActYrexBaselinePoints::showMenu(int index, const QPoint &globalPos)
{
    dock()->selectPoint(index);
    auto *menu = new QMenu(fHost.gui()->mainWindow());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName("yrexBaselinePointMenu");
    auto *kinds = new QActionGroup(menu);
    for (int kind = 1; kind <= cKinds; ++kind) {
        QAction *action = menu->addAction(TYrexBaselinePointsModel::kindNames().at(kind - 1));
        kinds->addAction(action);
        action->setCheckable(true);
        action->setChecked(session()->points().at(index).kind == kind);
        connect(action, &QAction::triggered, this, [this, index, kind] {
            if (!session())
                return;
            session()->setKind(index, kind);
            dock()->showEdit();
        });
    }
    menu->addSeparator();
    connect(menu->addAction(tr("X, Y...")), &QAction::triggered, this, [this, index] {
        if (session())
            dock()->editPlace(index);
    });
    connect(menu->addAction(tr("Remove")), &QAction::triggered, this, [this, index] { remove(index); });
    menu->popup(globalPos);
}

void TMMActYrexBaselinePoints::paint(QPainter &painter)
{
    if (!session())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (fDrag == cBand) {
        const QRectF curves = view()->itemToView(*item()).mapRect(plot()->plotter()->getPlotCurvesRect());
        const QRectF band(QPointF(fFrom.x(), curves.top()), QPointF(fTo.x(), curves.bottom()));
        QColor tint = cBlue;
        tint.setAlpha(40);
        painter.fillRect(band.normalized() & curves, tint);
    } else if (!fIsPressed && fHover < 0 && fIsInside) {
        paintGhost(painter);
    }
    paintPoint(painter);
    painter.restore();
}

/// Rings around the point under the mouse and the selected one; what is about to go is crossed.
void TMMActYrexBaselinePoints::paintPoint(QPainter &painter) const
{
    constexpr double cRing = 8.0;
    const int count = session()->points().size();
    const int selected = dock()->selectedPoint();
    const int hover = fDrag == cPoint ? fPoint : fHover;
    painter.setBrush(Qt::NoBrush);
    for (const int index : {selected, hover}) {
        if (index < 0 || index >= count)
            continue;
        const QPointF place = shownPoint(index);
        const bool goes = index == hover && (fIsLeaving || (fDrag == cNone && fModifiers & Qt::AltModifier));
        painter.setPen(QPen(goes ? cRed : cBlue, 2.0));
        painter.drawEllipse(place, cRing, cRing);
        if (goes)
            cross(painter, place);
    }
    if (hover >= 0 && hover < count) {
        const TYrexBaselinePoint &point = session()->points().at(hover);
        paintText(painter, shownPoint(hover), point.x, point.y, point.kind);
    }
}

/// The point that a click would add, and the baseline as it would be.
void TMMActYrexBaselinePoints::paintGhost(QPainter &painter) const
{
    constexpr double cRadius = 5.0;
    const QPointF place = toData(fTo);
    const int n = session()->stage().size();
    const int kind = kindFor(fModifiers, dock()->kind());
    const double position = qBound(0.0, std::round(place.x()), double(n - 1));
    const double value = session()->heightAt(position, place.y(), kind);
    const QPointF ghost = toView(position, value);
    QColor color = cBlue;
    color.setAlpha(150);
    painter.setPen(QPen(color, 1.0));
    if (kind != TYrexMultipointSession::cFree) {
        const int window = kind == TYrexMultipointSession::cAverage ? session()->setup().avgWindow
                                                                    : TYrexMultipointSession::cSmoothWindow;
        painter.drawLine(toView(std::max(0.0, position - window), value),
                         toView(std::min(double(n - 1), position + window), value));
    }
    painter.drawEllipse(ghost, cRadius, cRadius);
    paintText(painter, ghost, position, value, kind);
    if (session()->isPreviewing() || session()->points().isEmpty())
        return;
    QVector<TYrexBaselinePoint> knots = session()->points();
    const auto at = std::lower_bound(knots.begin(), knots.end(), position,
                                     [](const TYrexBaselinePoint &p, double x) { return p.x < x; });
    if (at != knots.end() && at->x == position)
        at->y = value;
    else
        knots.insert(at, {position, value, kind});
    const TYrexMultipointSetup &setup = session()->setup();
    const QVector<double> curve = TYrexMultipointCurve::curve(knots, n, setup.algorithm, setup.lambda);
    const int step = std::max(1, n / cMaxSegments);
    QPolygonF line;
    for (int i = int(knots.first().x) + 1; i < int(knots.last().x); i += step)
        line.append(toView(i, curve.at(i)));
    painter.setClipRect(view()->itemToView(*item()).mapRect(plot()->plotter()->getPlotCurvesRect()));
    painter.drawPolyline(line);
    painter.setClipping(false);
}

QString TMMActYrexBaselinePoints::pointText(double position, double value, int kind) const
{
    const double x = session()->xOf(position, plot()->xUnits());
    return QString("%1, %2  %3")
        .arg(TNumberFormat::fixed(x, plot()->viewDecimals(horzDir)),
             TNumberFormat::fixed(value, plot()->viewDecimals(vertDir)),
             TYrexBaselinePointsModel::kindNames().value(kind - 1));
}

void TMMActYrexBaselinePoints::paintText(QPainter &painter, const QPointF &place, double position, double value,
                                         int kind) const
{
    const QString text = pointText(position, value, kind);
    const QRectF curves = view()->itemToView(*item()).mapRect(plot()->plotter()->getPlotCurvesRect());
    QRectF box = painter.fontMetrics().boundingRect(text).adjusted(-4, -2, 4, 2);
    box.moveBottomLeft(place + QPointF(12.0, -10.0));
    if (box.right() > curves.right())
        box.moveRight(place.x() - 12.0);
    if (box.top() < curves.top())
        box.moveTop(place.y() + 12.0);
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 220));
    painter.drawRoundedRect(box, 3, 3);
    painter.setPen(QColor(0x20, 0x24, 0x2A));
    painter.drawText(box, Qt::AlignCenter, text);
    painter.restore();
}
