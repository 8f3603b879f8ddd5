#include "TYrexIntegralsSpectraModel.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "settings/TNumberFormat.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int cSignificant = 4;

using TRegion = TYrexIntegrationRegion;

double overlap(const TRegion &a, const TRegion &b)
{
    return std::min(std::max(a.boundA, a.boundB), std::max(b.boundA, b.boundB)) -
           std::max(std::min(a.boundA, a.boundB), std::min(b.boundA, b.boundB));
}

/// The region that overlaps the wanted one most; null for none. Bounds of both are x values.
const TRegion *likeOf(const TRegion &wanted, const TYrexIntegrationRegions &regions)
{
    const TRegion *best = nullptr;
    for (const TRegion *region : regions) {
        if (overlap(wanted, *region) > (best ? overlap(wanted, *best) : 0.0))
            best = region;
    }
    return best;
}

} // namespace

bool TYrexIntegralsSpectraModel::hasRatio() const
{
    return fOver >= 0 && fUnder >= 0 && fOver < fNames.size() && fUnder < fNames.size();
}

QVector<TTableColumn> TYrexIntegralsSpectraModel::makeColumns() const
{
    QVector<TTableColumn> columns{
        {"title", tr("Title"), tr("The spectrum."), TTableColumn::cText, true, true, 120},
        {"class", tr("Class"), tr("The class of the spectrum."), TTableColumn::cText, true, true, 0},
        {"value", tr("Value"), tr("The value by which the series is ordered."), TTableColumn::cNumber, true, true, 0}};
    for (int i = 0; i < fNames.size(); ++i)
        columns.append({QString("region%1").arg(i + 1), fNames.at(i),
                        tr("Area over the normalization of the active spectrum."), TTableColumn::cNumber, true, true,
                        0});
    if (hasRatio())
        columns.append({"ratio", tr("Ratio"), QString("%1 / %2").arg(fNames.at(fOver), fNames.at(fUnder)),
                        TTableColumn::cNumber, true, true, 0});
    return columns;
}

void TYrexIntegralsSpectraModel::read(TCanvasYrexSpectrum *item)
{
    const T1DYrexPlot *plot = item ? item->activeYrexPlot() : nullptr;
    QVector<TRow> rows;
    QStringList names;
    fRowIds.clear();
    if (!plot || !item->currentSpectrum()) {
        put(rows, names);
        return;
    }
    const TYrexSpectrum &active = *item->currentSpectrum();
    const int unit = plot->xUnits();
    const TYrexIntegrationRegions regions = item->dataObj()->integralRegions(unit, item->stack().current());
    const double span = item->lastXIn(unit, item->stack().current()) - item->firstXIn(unit, item->stack().current());
    const int decimals = decimalsOfStep(span / qMax(1, active.pointCount() - 1));
    for (const TRegion *region : regions)
        names.append(
            QString("%1 .. %2")
                .arg(TNumberFormat::fixed(region->boundA, decimals), TNumberFormat::fixed(region->boundB, decimals)));
    for (const int index : item->stack().visibleIndices()) {
        const TYrexIntegrationRegions own = item->dataObj()->integralRegions(unit, index);
        TRow row{index,
                 item->spectrumTitle(index),
                 item->stack().at(index)->spectrumClass(),
                 item->stackedContext()->arrayedValue(index),
                 {}};
        for (const TRegion *region : regions) {
            const TRegion *like = likeOf(*region, own);
            const double value = like ? std::abs(like->area) / active.integrals().normValue() : std::nan("");
            row.fIntegrals.append(std::isfinite(value) ? QVariant(value) : QVariant());
        }
        rows.append(row);
        fRowIds.append(item->stack().idOf(index));
    }
    put(rows, names);
}

void TYrexIntegralsSpectraModel::put(const QVector<TRow> &rows, const QStringList &names)
{
    const int before = fNames.size();
    fNames = names;
    const QVector<TTableColumn> columns = makeColumns();
    if (before == names.size()) {
        replaceRows(columns, fRowIds, [&] { fRows = rows; });
        return;
    }
    replaceRows({}, {}, [&] { fRows.clear(); }); // columns of other regions
    replaceRows(columns, fRowIds, [&] { fRows = rows; });
}

void TYrexIntegralsSpectraModel::setRatio(int over, int under)
{
    if (over == fOver && under == fUnder)
        return;
    fOver = over;
    fUnder = under;
    const QVector<TRow> rows = fRows;
    put(rows, QStringList(fNames));
}

QString TYrexIntegralsSpectraModel::text(int row, int column) const
{
    return column == cTitle ? fRows.at(row).fTitle : column == cClass ? fRows.at(row).fClass : QString();
}

QVariant TYrexIntegralsSpectraModel::number(int row, int column) const
{
    const TRow &shown = fRows.at(row);
    if (column == cValue)
        return shown.fValue;
    if (column < cFirstRegion)
        return QVariant();
    if (column < cFirstRegion + fNames.size())
        return shown.fIntegrals.value(column - cFirstRegion);
    const QVariant over = shown.fIntegrals.value(fOver);
    const double under = shown.fIntegrals.value(fUnder).toDouble();
    return over.isValid() && under != 0.0 ? QVariant(over.toDouble() / under) : QVariant();
}

int TYrexIntegralsSpectraModel::autoDecimals(int row, int column) const
{
    const double value = number(row, column).toDouble();
    return column == cValue && value == std::floor(value) ? 0 : decimalsOfDigits(value, cSignificant);
}
