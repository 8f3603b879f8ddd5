#include "TYrexIntegralsTableModel.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexEditIntegral.h"
#include "TCmdYrexIntegralNormalize.h"
#include "TYrexUnits.h"
#include "commands/TCommandHistory.h"
#include "services/IPluginHost.h"
#include "settings/TNumberFormat.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int cSignificant = 4;
constexpr int cShareDecimals = 1;
constexpr double cPercent = 100.0;

/// Points between the bounds, both included, bounds cut to whole points.
int pointsOf(const TYrexIntegrationRegion &region)
{
    const double low = std::min(region.boundA, region.boundB);
    const double high = std::max(region.boundA, region.boundB);
    return std::isfinite(low) && std::isfinite(high) ? int(high) - int(low) + 1 : 0;
}

QString withUnit(const QString &title, int unit)
{
    const QString name = yrexUnitShortName(unit);
    return name.isEmpty() ? title : QString("%1 [%2]").arg(title, name);
}

} // namespace

TYrexIntegralsTableModel::TYrexIntegralsTableModel(IPluginHost &host, QObject *parent)
    : TBaseTableViewModel(parent)
    , fHost(host)
{
}

TCanvasYrexSpectrum *TYrexIntegralsTableModel::item() const
{
    return yrexItem(fItem.get());
}

QVector<TTableColumn> TYrexIntegralsTableModel::makeColumns(int xUnit) const
{
    const auto number = [](const char *key, const QString &title, const QString &tip, bool isShown) {
        return TTableColumn{key, title, tip, TTableColumn::cNumber, isShown, true, 0};
    };
    QVector<TTableColumn> columns(cColumnCount);
    columns[cNumber] = number("number", "#", tr("The integral's place along the axis."), true);
    columns[cFrom] = number("from", withUnit(tr("From"), xUnit), tr("The bound at the left."), true);
    columns[cTo] = number("to", withUnit(tr("To"), xUnit), tr("The bound at the right."), true);
    columns[cIntegral] =
        number("integral", tr("Integral"),
               tr("The area over the normalization. A number above 0 makes this row the reference."), true);
    columns[cArea] = number("area", tr("Area"), tr("The sum of the values, with its sign."), true);
    columns[cReference] = {
        "reference", tr("Reference"), tr("The integral that is 1."), TTableColumn::cRadio, true, true, 0};
    columns[cMode] = {
        "mode", tr("Mode"), tr("Whether you drew the integral or it was found."), TTableColumn::cText, true, true, 0};
    columns[cCentre] = number("centre", withUnit(tr("Centre"), xUnit), tr("Midway between the bounds."), false);
    columns[cShare] = number("share", tr("Share [%]"), tr("Of the sum of all integrals."), false);
    return columns;
}

QVector<TYrexIntegralsTableModel::TRow> TYrexIntegralsTableModel::rowsOf(const TCanvasYrexSpectrum &item,
                                                                         int xUnit) const
{
    const TYrexSpectrum &spectrum = *item.currentSpectrum();
    const TYrexIntegrationRegions shown = item.dataObj()->integralRegions(xUnit, item.stack().current());
    const bool descends = item.activeYrexPlot()->horzAxis().direction() == 1;
    QVector<TRow> rows;
    for (int i = 0; i < shown.count(); ++i) {
        TRow row;
        row.fRegion = *shown.at(i);
        row.fPlace = spectrum.integrals().indexOf(row.fRegion.id);
        if (row.fPlace < 0)
            continue;
        row.fPoints = pointsOf(*spectrum.integrals().at(row.fPlace));
        row.fIsFromFirst = (row.fRegion.boundA > row.fRegion.boundB) == descends;
        row.fFrom = row.fIsFromFirst ? row.fRegion.boundA : row.fRegion.boundB;
        row.fTo = row.fIsFromFirst ? row.fRegion.boundB : row.fRegion.boundA;
        rows.append(row);
    }
    std::stable_sort(rows.begin(), rows.end(), [descends](const TRow &a, const TRow &b) {
        return descends ? a.fFrom > b.fFrom : a.fFrom < b.fFrom;
    });
    for (int i = 0; i < rows.size(); ++i)
        rows[i].fNumber = i + 1;
    return rows;
}

void TYrexIntegralsTableModel::read(TCanvasYrexSpectrum *item)
{
    const T1DYrexPlot *plot = item ? item->activeYrexPlot() : nullptr;
    const TYrexSpectrum *spectrum = plot ? item->currentSpectrum() : nullptr;
    const int xUnit = plot ? plot->xUnits() : int(cUnitArbitrary);
    const QVector<TRow> rows = spectrum ? rowsOf(*item, xUnit) : QVector<TRow>();
    QVariantList ids;
    for (const TRow &row : rows) // spectra of a stack may have copies of the same regions
        ids.append(QString("%1/%2").arg(item->stack().idOf(item->stack().current())).arg(row.fRegion.id.toString()));
    replaceRows(makeColumns(xUnit), ids, [&] {
        fItem = TSecurePtr<TCanvasItem>(item);
        fRows = rows;
        fXUnit = xUnit;
        fYUnit = spectrum ? spectrum->yUnits() : int(cUnitArbitrary);
        fNormValue = spectrum ? spectrum->integrals().normValue() : 1.0;
        fStep = 0.0;
        if (spectrum && spectrum->pointCount() > 1)
            fStep = (yrexConvertX(spectrum->lastX(), spectrum->origXUnits(), xUnit) -
                     yrexConvertX(spectrum->firstX(), spectrum->origXUnits(), xUnit)) /
                    (spectrum->pointCount() - 1);
    });
}

double TYrexIntegralsTableModel::integral(const TRow &row) const
{
    return std::abs(row.fRegion.area) / fNormValue;
}

double TYrexIntegralsTableModel::total() const
{
    double sum = 0.0;
    for (const TRow &row : fRows)
        sum += integral(row);
    return sum;
}

QSet<QUuid> TYrexIntegralsTableModel::idsOf(const QVector<int> &rows) const
{
    QSet<QUuid> ids;
    for (const int row : rows)
        ids.insert(fRows.at(row).fRegion.id);
    return ids;
}

QVariantList TYrexIntegralsTableModel::rowIdsOf(const QSet<QUuid> &integrals) const
{
    QVariantList ids;
    for (int row = 0; row < fRows.size(); ++row) {
        if (integrals.contains(fRows.at(row).fRegion.id))
            ids.append(rowId(row));
    }
    return ids;
}

QVector<int> TYrexIntegralsTableModel::placesOf(const QVector<int> &rows) const
{
    QVector<int> places;
    for (const int row : rows)
        places.append(fRows.at(row).fPlace);
    return places;
}

QString TYrexIntegralsTableModel::text(int row, int column) const
{
    if (column != cMode)
        return QString();
    return fRows.at(row).fRegion.mode == TYrexIntegrationRegion::cAutomatic ? tr("Auto") : tr("Manual");
}

QVariant TYrexIntegralsTableModel::number(int row, int column) const
{
    const TRow &shown = fRows.at(row);
    const auto finite = [](double value) { return std::isfinite(value) ? QVariant(value) : QVariant(); };
    switch (column) {
    case cNumber:
        return double(shown.fNumber);
    case cFrom:
        return finite(shown.fFrom);
    case cTo:
        return finite(shown.fTo);
    case cCentre:
        return finite(0.5 * (shown.fFrom + shown.fTo));
    case cIntegral:
        return finite(integral(shown));
    case cArea:
        return finite(shown.fRegion.area);
    case cShare:
        return finite(cPercent * integral(shown) / total());
    default:
        return QVariant();
    }
}

int TYrexIntegralsTableModel::autoDecimals(int row, int column) const
{
    switch (column) {
    case cFrom:
    case cTo:
    case cCentre:
        return decimalsOfStep(fStep);
    case cIntegral:
    case cArea:
        return decimalsOfDigits(number(row, column).toDouble(), cSignificant);
    case cShare:
        return cShareDecimals;
    default:
        return 0;
    }
}

bool TYrexIntegralsTableModel::isRadioOn(int row, int) const
{
    return fRows.at(row).fRegion.reference;
}

bool TYrexIntegralsTableModel::isEditable(int, int column) const
{
    return column == cFrom || column == cTo || column == cIntegral;
}

QString TYrexIntegralsTableModel::toolTip(int row, int column) const
{
    if (column != cArea)
        return QString();
    const bool isTransmittance = fYUnit == cUnitTransmittance || fYUnit == cUnitPercentTransmittance;
    return tr("Sum over %1 points in %2")
        .arg(fRows.at(row).fPoints)
        .arg(yrexUnitDisplayName(isTransmittance ? int(cUnitAbsorbance) : fYUnit));
}

bool TYrexIntegralsTableModel::push(TCommand *command) const
{
    return fHost.history().push(command);
}

bool TYrexIntegralsTableModel::makeReference(int row)
{
    const double area = std::abs(fRows.at(row).fRegion.area);
    return item() && area > 0.0 &&
           push(new TCmdYrexIntegralNormalize(TCanvasItemList{item()}, fRows.at(row).fPlace, area));
}

bool TYrexIntegralsTableModel::moveBound(int row, int column, double x)
{
    const TRow &shown = fRows.at(row);
    const double other = column == cFrom ? shown.fTo : shown.fFrom;
    const bool descends = shown.fFrom > shown.fTo;
    const bool isBeyond = (column == cFrom) == descends ? x <= other : x >= other;
    if (isBeyond) {
        emit refused(index(row, column), tr("A bound does not go beyond the other, which is at %1.")
                                             .arg(TNumberFormat::fixed(other, decimalsOfStep(fStep))));
        return false;
    }
    const bool isFirst = (column == cFrom) == shown.fIsFromFirst;
    return push(new TCmdYrexEditIntegral(
        item(), shown.fRegion.id, isFirst ? TCmdYrexEditIntegral::cFirstBound : TCmdYrexEditIntegral::cSecondBound, x,
        fXUnit));
}

bool TYrexIntegralsTableModel::edit(int row, int column, const QString &text)
{
    double value = 0.0;
    if (!item())
        return false;
    if (!TNumberFormat::read(text, value)) {
        emit refused(index(row, column), tr("\"%1\" is not a number.").arg(text));
        return false;
    }
    if (column != cIntegral)
        return moveBound(row, column, value);
    const double area = std::abs(fRows.at(row).fRegion.area);
    if (value <= 0.0 || area <= 0.0) {
        emit refused(index(row, column), value <= 0.0 ? tr("An integral is above 0.")
                                                      : tr("An integral without area cannot be the reference."));
        return false;
    }
    return push(new TCmdYrexIntegralNormalize(TCanvasItemList{item()}, fRows.at(row).fPlace, area / value));
}
