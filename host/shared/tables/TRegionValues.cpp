#include "tables/TRegionValues.h"

#include "canvas/TCanvasSpectrum.h"
#include "contexts/DARegions.h"
#include "contexts/IDAItemCtx.h"
#include "contexts/IDARegionsItem.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/TBasePlot.h"
#include "settings/TNumberFormat.h"

#include <QCoreApplication>
#include <cmath>
#include <limits>

namespace {

constexpr double cNothing = std::numeric_limits<double>::quiet_NaN();
constexpr int cLimitDigits = 5;

double xOf(IDAItemCtx &context, int index, int number, const TRegionValues::TX &x)
{
    double value = cNothing;
    switch (x.fSource) {
    case TRegionValues::cNumber:
        return number;
    case TRegionValues::cParameter:
        return context.paramValue(index, x.fParameter, value) ? value : cNothing;
    case TRegionValues::cSeriesValue:
        break;
    }
    return context.arrayedValue(index);
}

/// The smallest number stands for a band without points.
double valueOf(IDAItemCtx &context, int index, const TDARegion &region)
{
    double value = 0.0;
    const bool isThere = context.regionValue(index, region, region.from, region.to, value);
    return isThere && std::abs(value) > std::numeric_limits<double>::min() ? value : cNothing;
}

QString plainLimit(double limit)
{
    return QString::number(limit, 'g', cLimitDigits);
}

QString shownLimit(double limit)
{
    return TNumberFormat::shown(plainLimit(limit));
}

} // namespace

TRegionValues::TRegionValues(TCanvasItem *item, const TX &x, const QUuid &divisor)
{
    IDARegionsItem *regions = item ? item->regionsItem() : nullptr;
    IStackedItemCtx *stack = item ? item->stackedContext() : nullptr;
    if (!regions || !stack)
        return;
    fRegions = regions->shownDARegions();
    fDivisor = DARegions::indexOf(fRegions, divisor);
    const auto *spectra = dynamic_cast<const TCanvasSpectrum *>(item);
    const TBasePlot *plot = spectra ? spectra->activePlot() : nullptr;
    for (TDARegion &region : fRegions) {
        const TRange limits = TRange(region.from, region.to).sorted();
        const TRange shown = plot ? limits.inDirectionOf(plot->horzAxis().getScale()) : limits;
        region.from = shown.a;
        region.to = shown.b;
    }
    const QVector<int> order = stack->visibleOrder();
    for (const int index : order)
        addRow(*item, index, x);
}

void TRegionValues::addRow(TCanvasItem &item, int index, const TX &x)
{
    IDAItemCtx &context = *item.regionsItem()->daContext();
    const QVector<TDARegion> regions = item.regionsItem()->daRegions();
    TRow row;
    row.fIndex = index;
    row.fTitle = item.stackedContext()->title(index);
    row.fColor = item.stackedContext()->color(index);
    row.fX = xOf(context, index, fRows.size() + 1, x);
    for (const TDARegion &region : regions)
        row.fValues.append(valueOf(context, index, region));
    const double divisor = row.fValues.value(fDivisor, 1.0);
    for (int i = 0; i < row.fValues.size(); ++i) {
        if (fDivisor >= 0 && i != fDivisor)
            row.fValues[i] = divisor != 0.0 ? row.fValues.at(i) / divisor : cNothing;
    }
    fRows.append(row);
}

QString TRegionValues::headerWith(int region, const QString &from, const QString &to) const
{
    QString name = fRegions.at(region).name;
    if (fDivisor >= 0 && fDivisor != region)
        name = QCoreApplication::translate("TRegionValues", "%1 / %2").arg(name, fRegions.at(fDivisor).name);
    return QCoreApplication::translate("TRegionValues", "%1 %2..%3").arg(name, from, to);
}

QString TRegionValues::header(int region) const
{
    const TDARegion &shown = fRegions.at(region);
    return headerWith(region, shownLimit(shown.from), shownLimit(shown.to));
}

QString TRegionValues::plainHeader(int region) const
{
    const TDARegion &shown = fRegions.at(region);
    return headerWith(region, plainLimit(shown.from), plainLimit(shown.to));
}

QVector<double> TRegionValues::xs() const
{
    QVector<double> all;
    for (const TRow &row : fRows)
        all.append(row.fX);
    return all;
}

QVector<double> TRegionValues::values(int region) const
{
    QVector<double> all;
    for (const TRow &row : fRows)
        all.append(row.fValues.value(region, cNothing));
    return all;
}
