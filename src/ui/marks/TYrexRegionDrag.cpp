#include "TYrexRegionDrag.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexDataAnalysisHandler.h"
#include "commands/TCmdEditRegions.h"
#include "contexts/DARegions.h"
#include "settings/TNumberFormat.h"
#include "ui/IPlotView.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <cmath>

namespace {

constexpr int cTextMargin = 4; // px

} // namespace

TYrexRegionDrag::TYrexRegionDrag(TCanvasYrexSpectrum *item, const QUuid &region, bool isTo)
    : fItem(item)
    , fBefore(item->daRegions())
    , fEdited(fBefore)
    , fPlace(DARegions::indexOf(fBefore, region))
    , fIsTo(isTo)
{
}

TYrexRegionDrag::~TYrexRegionDrag()
{
    TYrexRegionDrag::giveUp();
}

void TYrexRegionDrag::giveUp()
{
    if (!fItem || !fIsShown)
        return;
    fIsShown = false;
    fItem->setDARegions(fBefore);
    fItem->refreshGraphics();
}

void TYrexRegionDrag::moveTo(const QPointF &itemPos, double, Qt::KeyboardModifiers)
{
    if (!fItem || fPlace < 0 || !fItem->activePlotter())
        return;
    const QRectF curves = fItem->activePlotter()->getPlotCurvesRect();
    fMouseX = std::clamp(itemPos.x(), curves.left(), curves.right());
    const double moved = fItem->toRegionLimit(fItem->activePlotter()->canvas2Scale(horzDir, fMouseX));
    if (!std::isfinite(moved))
        return;
    const double other = fIsTo ? fBefore.at(fPlace).from : fBefore.at(fPlace).to;
    fEdited[fPlace].from = std::min(moved, other);
    fEdited[fPlace].to = std::max(moved, other);
    fIsShown = true;
    fItem->setDARegions(fEdited);
    fItem->refreshGraphics();
}

QString TYrexRegionDrag::text() const
{
    constexpr int cDigits = 6;
    const auto shown = [](double number) { return TNumberFormat::shown(QString::number(number, 'g', cDigits)); };
    if (!fItem || fPlace < 0)
        return QString();
    const TDARegion region = fItem->shownDARegions().at(fPlace);
    const QString limits = shown(region.from) + QStringLiteral(" .. ") + shown(region.to);
    double value = 0.0;
    const bool isThere = TYrexDataAnalysisHandler::value(*fItem.get(), region.kind, region.from, region.to, value);
    return isThere ? limits + QStringLiteral("   ") + shown(value) : limits;
}

void TYrexRegionDrag::paint(QPainter &painter, const IPlotView &view) const
{
    if (!fItem || fPlace < 0 || !fItem->activePlotter())
        return;
    const QTransform toView = view.itemToView(*fItem.get());
    const QRectF room = toView.mapRect(fItem->activePlotter()->getPlotCurvesRect());
    const QString label = text();
    painter.save();
    QRectF box = painter.fontMetrics().boundingRect(label);
    box.adjust(-cTextMargin, -cTextMargin, cTextMargin, cTextMargin);
    box.moveTopLeft(QPointF(toView.map(QPointF(fMouseX, 0.0)).x() + cTextMargin, room.top() + 6 * cTextMargin));
    box.moveRight(std::min(box.right(), room.right()));
    painter.fillRect(box, QGuiApplication::palette().color(QPalette::ToolTipBase));
    painter.setPen(QGuiApplication::palette().color(QPalette::ToolTipText));
    painter.drawText(box, Qt::AlignCenter, label);
    painter.restore();
}

TCommand *TYrexRegionDrag::finish()
{
    giveUp();
    return fItem && fEdited != fBefore ? new TCmdEditRegions(fItem.get(), fEdited) : nullptr;
}
