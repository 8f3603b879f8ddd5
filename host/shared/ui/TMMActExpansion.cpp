#include "ui/TMMActExpansion.h"

#include "canvas/ItemPlaces.h"
#include "canvas/TCanvasSpectrum.h"
#include "canvas/TItemFragment.h"
#include "commands/TCmdCreateItem.h"
#include "commands/TCommandHistory.h"
#include "consts/Consts.h"
#include "plot/TBasePlot.h"
#include "plot/TBasePlotter.h"
#include "ui/PlotCursors.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr double cClickUnits = 15.0; // a shorter drag is a click, canvas units
const QColor cBand(0x4A, 0x90, 0xD9);

} // namespace

TMMActExpansion::TMMActExpansion()
    : TMMAct(Consts::Common::expansionModeID)
{
}

QCursor TMMActExpansion::cursor(const TMouseSpot &spot) const
{
    return spot.inCurves ? PlotCursors::inset() : QCursor(Qt::ArrowCursor);
}

QString TMMActExpansion::hint() const
{
    return QCoreApplication::translate("TMMActExpansion", "Expansion: drag over the stretch to show enlarged.");
}

bool TMMActExpansion::mousePress(QMouseEvent *event, const TMouseSpot &spot)
{
    if (event->button() == Qt::RightButton)
        return cancelGesture();
    if (event->button() != Qt::LeftButton || !spot.inCurves)
        return false;
    fItem = TSecurePtr<TCanvasItem>(spot.item);
    fFrom = fTo = spot.itemPos.x();
    return true;
}

bool TMMActExpansion::mouseMove(QMouseEvent *, const TMouseSpot &spot)
{
    if (!fItem)
        return false;
    fTo = view()->itemToView(*fItem.get()).inverted().map(spot.viewPos).x();
    view()->updateOverlay();
    return true;
}

bool TMMActExpansion::mouseRelease(QMouseEvent *event, const TMouseSpot &)
{
    auto *source = dynamic_cast<TCanvasSpectrum *>(fItem.get());
    if (event->button() != Qt::LeftButton || !source || !source->activePlot())
        return false;
    const QRectF drawn = band();
    cancelGesture();
    if (drawn.width() >= cClickUnits)
        createExpansion(*source, drawn.left(), drawn.right());
    return true;
}

void TMMActExpansion::createExpansion(TCanvasSpectrum &source, double from, double to)
{
    const TBasePlotter *plotter = source.activePlotter();
    const TRange range(plotter->canvas2Scale(horzDir, from), plotter->canvas2Scale(horzDir, to));
    const QList<TCanvasItem *> copies = TItemFragment::load(TItemFragment::store({&source}));
    auto *part = copies.isEmpty() ? nullptr : dynamic_cast<TCanvasSpectrum *>(copies.first());
    if (!part || !part->activePlot() || !source.canvas()) {
        qDeleteAll(copies);
        return;
    }
    TCanvasItem::link(part, cExpansionRole, source.uniqueId());
    part->setLayoutPolicy(TCanvasItem::cOwnRect, false);
    // a plot that has the page for itself makes room within its axes
    const bool isAlone = source.canvas()->items().size() == 1;
    const QRectF curves = plotter->getPlotCurvesRect().translated(source.rect().topLeft());
    part->setRect(emptiestCorner(*source.canvas(), isAlone ? curves : QRectF()));
    part->activePlot()->setScale(horzDir, range.a, range.b);
    part->activePlot()->fitToHeight();
    part->activePlot()->setTitleVisible(false); // it stands over the source already, as the legend does
    part->activePlot()->properties().showLegend = false;
    auto *command =
        new TCmdCreateItem(TCmdCreateItem::cOther, {part}, nullptr, source.canvas(), source.provenance(), 1);
    command->setDescription(QCoreApplication::translate("TMMActExpansion", "Create Expansion"));
    view()->history().push(command);
    view()->selectItem(part, false);
}

bool TMMActExpansion::cancelGesture()
{
    if (!fItem)
        return false;
    fItem = TSecurePtr<TCanvasItem>();
    if (view())
        view()->updateOverlay();
    return true;
}

QRectF TMMActExpansion::band() const
{
    const auto *source = dynamic_cast<const TCanvasSpectrum *>(fItem.get());
    if (!source || !source->activePlotter())
        return QRectF();
    const QRectF curves = source->activePlotter()->getPlotCurvesRect();
    return QRectF(QPointF(fFrom, curves.top()), QPointF(fTo, curves.bottom())).normalized() & curves;
}

void TMMActExpansion::paint(QPainter &painter)
{
    if (!fItem)
        return;
    const QRectF pixels = view()->itemToView(*fItem.get()).mapRect(band());
    painter.save();
    QColor fill = cBand;
    fill.setAlphaF(0.1);
    painter.fillRect(pixels, fill);
    painter.setPen(QPen(cBand, 1.0, Qt::DashLine));
    painter.drawLine(pixels.topLeft(), pixels.bottomLeft());
    painter.drawLine(pixels.topRight(), pixels.bottomRight());
    painter.restore();
}
