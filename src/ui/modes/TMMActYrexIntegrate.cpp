#include "TMMActYrexIntegrate.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexManualIntegration.h"
#include "TCmdYrexProcessing.h"
#include "TYrexHighlightHandler.h"
#include "TYrexModePaint.h"
#include "TYrexUnits.h"
#include "YrexModeIds.h"
#include "commands/TCommandHistory.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "settings/TNumberFormat.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double cSnapReach = 10.0; // pixels
constexpr double cLeastWidth = 2.0;
constexpr double cBandAlpha = 0.15;
constexpr double cAreaAlpha = 0.22; // down to the baseline
constexpr double cChordAlpha = 0.12;

/// The bounds that the command gives a region; false when it would hold a single point, or none.
bool boundsOf(const TYrexModePlot &plot, const TYrexModeDrag &drag, double &from, double &to)
{
    const double a = plot.pointAt(drag.fStartX);
    const double b = plot.pointAt(drag.fX);
    const double last = plot.spectrum()->pointCount() - 1;
    if (!std::isfinite(a) || !std::isfinite(b) || std::max(a, b) < 0.0 || std::min(a, b) > last)
        return false;
    from = qBound(0.0, std::min(a, b), last);
    to = qBound(0.0, std::max(a, b), last);
    return std::trunc(from) < std::trunc(to);
}

/// Four digits that count.
QString areaNumber(double area)
{
    constexpr int cDigits = 4;
    constexpr int cMostDecimals = 8;
    if (area == 0.0 || !std::isfinite(area))
        return TNumberFormat::fixed(area, 0);
    const int decimals = cDigits - 1 - int(std::floor(std::log10(std::fabs(area))));
    return TNumberFormat::fixed(area, qBound(0, decimals, cMostDecimals));
}

bool isTransmittance(int unit)
{
    return unit == cUnitTransmittance || unit == cUnitPercentTransmittance;
}

} // namespace

TMMActYrexIntegrate::TMMActYrexIntegrate(IPluginHost &host, TYrexHighlightHandler &highlights)
    : TMMActYrexMark(YrexModes::integrateModeID, host, ":/cursors/cursor-integrate.png")
    , fHighlights(highlights)
{
}

QString TMMActYrexIntegrate::transmittanceText()
{
    return tr("Areas of a transmittance spectrum need Intensity Units Conversion in the chain.");
}

void TMMActYrexIntegrate::enter(const QByteArray &)
{
    warnOfTransmittance(activeItem());
}

void TMMActYrexIntegrate::leave()
{
    TMMActYrexMark::leave();
    if (host().gui())
        host().gui()->hideWarningBar(transmittanceText());
}

void TMMActYrexIntegrate::begun(const TYrexModePlot &plot)
{
    warnOfTransmittance(plot.item());
}

/// Areas of transmittance are taken in absorbance, whose limit stands in the conversion's settings.
void TMMActYrexIntegrate::warnOfTransmittance(const TCanvasYrexSpectrum *item) const
{
    const TYrexSpectrum *spectrum = item ? item->currentSpectrum() : nullptr;
    if (!spectrum || !host().gui())
        return;
    if (isTransmittance(spectrum->yUnits()) && spectrum->procParams().indexOfAction(cProcUnitConversion) < 0)
        host().gui()->showWarningBar(transmittanceText(), tr("Add"), [this] { addConversion(); });
    else
        host().gui()->hideWarningBar(transmittanceText());
}

/// As the first action, switched off: it converts nothing, and its limit is known.
void TMMActYrexIntegrate::addConversion() const
{
    TCanvasYrexSpectrum *item = activeItem();
    const TYrexSpectrum *spectrum = item ? item->currentSpectrum() : nullptr;
    if (!spectrum || spectrum->procParams().indexOfAction(cProcUnitConversion) >= 0)
        return;
    TYrexProcParams params = spectrum->procParams().params();
    QVariantList actions = params.actions();
    actions.prepend(params.defaultMap(cProcUnitConversion));
    params.setActions(actions);
    host().history().push(new TCmdYrexProcessing(targetsOf(item), params));
    host().gui()->updateActions();
}

QString TMMActYrexIntegrate::targetsText() const
{
    TCanvasYrexSpectrum *item = activeItem();
    if (view()) {
        const TYrexModePlot plot = shownPlot();
        item = plot.isValid() ? plot.item() : item;
    }
    if (!item)
        return QString();
    const TCanvasItemList items = targetsOf(item);
    int count = 0;
    int present = 0;
    for (ICanvasItem *entry : items) {
        const TCanvasYrexSpectrum *target = yrexItem(entry);
        count += target ? target->stack().selectedIndices(false, true).size() : 0;
        present += target ? target->stack().count() : 0;
    }
    if (present < 2)
        return QString();
    return ' ' +
           (count == 1 ? tr("Applies to 1 selected spectrum.") : tr("Applies to %1 selected spectra.").arg(count));
}

bool TMMActYrexIntegrate::isRegion(const TYrexModePlot &plot, const TYrexModeDrag &drag)
{
    double from = 0.0;
    double to = 0.0;
    return drag.fWidth >= cLeastWidth && boundsOf(plot, drag, from, to);
}

QString TMMActYrexIntegrate::areaText(const TYrexModePlot &plot, const TYrexModeDrag &drag)
{
    TYrexIntegrationRegion region;
    if (boundsOf(plot, drag, region.boundA, region.boundB))
        TYrexIntegrationRegions::calculateArea(*plot.spectrum(), region, plot.plot()->yUnits());
    return areaNumber(region.area);
}

QString TMMActYrexIntegrate::hint() const
{
    const QString idle = tr("Drag over a band to integrate it. Shift: snap limits to minima.") + targetsText();
    if (!isDragging())
        return idle;
    const TYrexModePlot plot = shownPlot();
    if (!plot.isValid() || !isRegion(plot, drag(plot)))
        return idle;
    const TYrexModeDrag now = drag(plot);
    return tr("From %1 to %2, area %3. Release to add, Escape to cancel.")
               .arg(plot.xText(std::min(now.fStartX, now.fX)), plot.xText(std::max(now.fStartX, now.fX)),
                    areaText(plot, now)) +
           targetsText();
}

double TMMActYrexIntegrate::xOf(const TYrexModePlot &plot, const QPointF &viewPos) const
{
    return keys() & Qt::ShiftModifier ? plot.lowestXNear(viewPos, cSnapReach) : plot.xAt(viewPos);
}

void TMMActYrexIntegrate::finished(const TYrexModePlot &plot, const TYrexModeDrag &drag)
{
    if (!isRegion(plot, drag))
        return;
    TCanvasYrexSpectrum *item = plot.item();
    const TCanvasItemList items = targetsOf(item);
    const int yUnits = plot.plot()->yUnits();
    const bool isOneUnit = std::all_of(items.begin(), items.end(), [yUnits](ICanvasItem *entry) {
        const TCanvasYrexSpectrum *target = yrexItem(entry);
        return target && target->shownYUnits() == yUnits;
    });
    // items that show different units have their areas taken in their own
    const int areaUnits = isOneUnit ? yUnits : int(cUnitArbitrary);
    auto *command = new TCmdYrexManualIntegration(items, 0, drag.fStartX, drag.fX, plot.xUnits(), areaUnits);
    const int before = item->currentSpectrum()->integrals().count();
    if (!host().history().push(command))
        return;
    const TYrexIntegrationRegions &integrals = item->currentSpectrum()->integrals();
    if (integrals.count() > before)
        fHighlights.highlightIntegrals(item->uniqueId(), {integrals.at(integrals.count() - 1)->id});
    host().gui()->updateActions();
}

void TMMActYrexIntegrate::paintHover(const TYrexModePaint &paint, const TYrexModePlot &plot, const TMouseSpot &)
{
    const double x = xOf(plot, pointer());
    paint.upright(x, plot.plot()->integralProperties().pen.color());
    paint.note(pointer(), plot.xText(x));
}

void TMMActYrexIntegrate::paintDrag(const TYrexModePaint &paint, const TYrexModePlot &plot, const TYrexModeDrag &drag)
{
    const QColor color = plot.plot()->integralProperties().pen.color();
    paint.band(drag.fStartX, drag.fX, color, cBandAlpha);
    double from = 0.0;
    double to = 0.0;
    if (!isRegion(plot, drag) || !boundsOf(plot, drag, from, to))
        return;
    const TYrexModePlot own(plot.item(), *view()); // in a stack the row of the active spectrum
    const TYrexModePaint ownPaint = paint.on(own);
    ownPaint.fill(from, to, color, cAreaAlpha);
    ownPaint.fill(from, to, color, cChordAlpha, true);
    const QString limits =
        QStringLiteral("%1 .. %2")
            .arg(plot.xText(std::min(drag.fStartX, drag.fX)), plot.xText(std::max(drag.fStartX, drag.fX)));
    paint.note(pointer(), limits + QStringLiteral("   ") + areaText(plot, drag));
}
