#include "TYrexCursorInfoHandler.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexMarkPlaces.h"
#include "TYrexPeakWidth.h"
#include "TYrexUnits.h"
#include "settings/TNumberFormat.h"
#include "ui/TMouseSpot.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int cSignificantDigits = 4;
constexpr int cValueDecimals = 3; // of shown integrals
constexpr int cMostDecimals = 8;

} // namespace

QString TYrexCursorInfoHandler::significant(double value)
{
    const double size = std::abs(value);
    const int before = size > 0.0 && std::isfinite(size) ? int(std::floor(std::log10(size))) + 1 : 1;
    return TNumberFormat::fixed(value, std::clamp(cSignificantDigits - before, 0, cMostDecimals));
}

QString TYrexCursorInfoHandler::unitSign(int xUnit)
{
    switch (xUnit) {
    case cUnitWavenumber:
    case cUnitRamanShift:
        return QStringLiteral("cm-1");
    case cUnitMicrometers:
        return QString::fromUtf8("\u00B5m");
    case cUnitNanometers:
        return QStringLiteral("nm");
    default:
        return QString();
    }
}

QString TYrexCursorInfoHandler::infoAt(const TMouseSpot &spot) const
{
    const TCanvasYrexSpectrum *item = yrexItem(spot.item);
    if (item && spot.area.type() == TPlotHotArea::peak)
        return peakText(*item, spot.area.id());
    if (item && spot.area.type() == TPlotHotArea::integral)
        return integralText(*item, spot.area.id());
    return QString();
}

QString TYrexCursorInfoHandler::peakText(const TCanvasYrexSpectrum &item, const QUuid &peak)
{
    const TYrexSpectrum *spectrum = item.currentSpectrum();
    const T1DYrexPlot *plot = item.activeYrexPlot();
    const int index = spectrum ? TYrexDPLib::indexOfId(spectrum->peaks(), peak) : -1;
    if (index < 0 || !plot)
        return QString();
    const TYrexDPLib::TYrexDPPeak &record = *spectrum->peaks().at(index);
    const int unit = plot->xUnits();
    const int decimals = plot->viewDecimals(horzDir);
    const int place = int(record.position);
    const double y = spectrum->values().value(place, record.intensity); // as the data stand now
    const double x = YrexMarkPlaces::xAt(*spectrum, record.position, unit);
    QStringList parts{tr("Peak %1 %2").arg(TNumberFormat::fixed(x, decimals), unitSign(unit)).trimmed(),
                      significant(y)};
    const TYrexPeakWidth::TSpan band = TYrexPeakWidth::measure(spectrum->values(), record.position, record.positive);
    if (band.isValid()) {
        const double width =
            YrexMarkPlaces::xAt(*spectrum, band.fRight, unit) - YrexMarkPlaces::xAt(*spectrum, band.fLeft, unit);
        parts.append(tr("width %1").arg(TNumberFormat::fixed(std::abs(width), decimals)));
    }
    parts.append(record.flags & TYrexDPLib::cAutoPicked ? tr("auto") : tr("manual"));
    if (!record.annotation.isEmpty())
        parts.append(record.annotation);
    return parts.join(QStringLiteral(", "));
}

QString TYrexCursorInfoHandler::integralText(const TCanvasYrexSpectrum &item, const QUuid &integral)
{
    const TYrexSpectrum *spectrum = item.currentSpectrum();
    const T1DYrexPlot *plot = item.activeYrexPlot();
    const TYrexIntegrationRegion *region = spectrum ? spectrum->integrals().region(integral) : nullptr;
    if (!region || !plot)
        return QString();
    const int decimals = plot->viewDecimals(horzDir);
    const double a = YrexMarkPlaces::xAt(*spectrum, region->boundA, plot->xUnits());
    const double b = YrexMarkPlaces::xAt(*spectrum, region->boundB, plot->xUnits());
    const double value = spectrum->integrals().integralValue(region, true);
    return tr("Integral %1 .. %2, %3%4, area %5")
        .arg(TNumberFormat::fixed(std::min(a, b), decimals), TNumberFormat::fixed(std::max(a, b), decimals),
             TNumberFormat::fixed(value, cValueDecimals), region->reference ? tr(" (reference)") : QString(),
             significant(region->area));
}
