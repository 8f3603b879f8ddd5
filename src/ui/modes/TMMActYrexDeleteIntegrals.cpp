#include "TMMActYrexDeleteIntegrals.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexDeleteIntegrals.h"
#include "TYrexIntegralGroup.h"
#include "TYrexModePaint.h"
#include "TYrexUnits.h"
#include "YrexModeIds.h"
#include "commands/TCommandHistory.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "utils/GeometryUtils.h"

#include <cmath>
#include <limits>

namespace {

constexpr double cBandAlpha = 0.12;
constexpr double cFillAlpha = 0.35;

} // namespace

TMMActYrexDeleteIntegrals::TMMActYrexDeleteIntegrals(IPluginHost &host)
    : TMMActYrexMark(YrexModes::deleteIntegralsModeID, host, ":/cursors/cursor-delete-integrals.png")
{
}

QString TMMActYrexDeleteIntegrals::hint() const
{
    return tr("Click an integral or drag over several to delete them.");
}

bool TMMActYrexDeleteIntegrals::hasWork(const TYrexSpectrum &spectrum) const
{
    return !spectrum.integrals().isEmpty();
}

/// What of an integral is drawn under the pointer, else the narrowest region around its x; -1 for none.
int TMMActYrexDeleteIntegrals::pointedRegion(const TYrexModePlot &plot, const TMouseSpot &spot)
{
    const TYrexIntegrationRegions &integrals = plot.spectrum()->integrals();
    if (spot.area.type() == TPlotHotArea::integral && integrals.indexOf(spot.area.id()) >= 0)
        return integrals.indexOf(spot.area.id());
    const double point = plot.pointAt(plot.xAt(spot.viewPos));
    int found = -1;
    double width = std::numeric_limits<double>::max();
    for (int i = 0; i < integrals.count(); ++i) {
        const QRectF bounds = YrexIntegralGroup::rectOf(*integrals.at(i));
        if (bounds.left() <= point && point <= bounds.right() && bounds.width() < width) {
            found = i;
            width = bounds.width();
        }
    }
    return found;
}

void TMMActYrexDeleteIntegrals::finished(const TYrexModePlot &plot, const TYrexModeDrag &drag)
{
    TCommand *command = nullptr;
    if (drag.fIsClick) {
        const int region = pointedRegion(plot, view()->spotAt(drag.fPos));
        if (region >= 0)
            command = new TCmdYrexDeleteIntegrals({plot.item()}, QVector<int>{region});
    } else {
        const QRectF band(QPointF(drag.fStartX, 0.0), QPointF(drag.fX, 0.0));
        command = new TCmdYrexDeleteIntegrals(targetsOf(plot.item()), band, plot.xUnits());
    }
    if (command && host().history().push(command))
        host().gui()->updateActions();
}

void TMMActYrexDeleteIntegrals::paintRegion(const TYrexModePaint &paint, const TYrexModePlot &plot,
                                            const TYrexIntegrationRegion &region, bool crossed)
{
    const QColor red = TYrexModePaint::deletionColor();
    paint.fill(region.boundA, region.boundB, red, cFillAlpha);
    const double column = (plot.columnOf(plot.xOf(region.boundA)) + plot.columnOf(plot.xOf(region.boundB))) / 2;
    QPointF centre(column, plot.curves().center().y());
    for (const TPlotHotArea &area : plot.plot()->hotAreasOf(region.id)) {
        if (area.subType() != T1DYrexPlot::cSegmentArea && area.subType() != T1DYrexPlot::cCurveArea &&
            area.subType() != T1DYrexPlot::cLabelArea)
            continue;
        const QRectF rect = plot.itemToView().mapRect(area.rect());
        paint.tint(rect, red);
        if (area.subType() == T1DYrexPlot::cSegmentArea)
            centre = rect.center();
    }
    if (crossed)
        paint.cross(centre);
}

void TMMActYrexDeleteIntegrals::paintHover(const TYrexModePaint &paint, const TYrexModePlot &plot,
                                           const TMouseSpot &spot)
{
    const int region = pointedRegion(plot, spot);
    if (region < 0)
        return;
    const TYrexModePlot own(plot.item(), *view());
    paintRegion(paint.on(own), own, *plot.spectrum()->integrals().at(region), false);
}

void TMMActYrexDeleteIntegrals::paintDrag(const TYrexModePaint &paint, const TYrexModePlot &plot,
                                          const TYrexModeDrag &drag)
{
    if (drag.fIsClick)
        return;
    paint.band(drag.fStartX, drag.fX, TYrexModePaint::deletionColor(), cBandAlpha);
    for (ICanvasItem *entry : targetsOf(plot.item())) {
        const TYrexModePlot own(yrexItem(entry), *view());
        if (!own.isValid())
            continue;
        const double from = own.pointAt(yrexConvertX(drag.fStartX, plot.xUnits(), own.xUnits()));
        const double to = own.pointAt(yrexConvertX(drag.fX, plot.xUnits(), own.xUnits()));
        const QRectF band = QRectF(QPointF(from, 0.0), QPointF(to, 0.0)).normalized();
        for (const TYrexIntegrationRegion *region : own.spectrum()->integrals()) {
            if (!Utils::Geometry::intersect(YrexIntegralGroup::rectOf(*region), band).isNull())
                paintRegion(paint.on(own), own, *region, true);
        }
    }
}
