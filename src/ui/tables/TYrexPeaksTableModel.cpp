#include "TYrexPeaksTableModel.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexEditPeak.h"
#include "TYrexMarkPlaces.h"
#include "TYrexPeakWidth.h"
#include "TYrexUnits.h"
#include "commands/TCommandHistory.h"
#include "services/IPluginHost.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int cSignificant = 4;
constexpr double cStrong = 0.66; // of the highest
constexpr double cMedium = 0.33;
constexpr double cLowestTransmittance = 1e-6; // below the sensitivity of any instrument

QString withUnit(const QString &title, int unit)
{
    const QString name = yrexUnitShortName(unit);
    return name.isEmpty() ? title : QString("%1 [%2]").arg(title, name);
}

} // namespace

TYrexPeaksTableModel::TYrexPeaksTableModel(IPluginHost &host, QObject *parent)
    : TBaseTableViewModel(parent)
    , fHost(host)
{
}

TCanvasYrexSpectrum *TYrexPeaksTableModel::item() const
{
    return yrexItem(fItem.get());
}

QVector<TTableColumn> TYrexPeaksTableModel::makeColumns(int xUnit) const
{
    const int second = yrexSecondUnit(xUnit);
    QVector<TTableColumn> columns(cColumnCount);
    columns[cSpectrum] = {"spectrum",          tr("Spectrum"), tr("The spectrum that the peak is of."),
                          TTableColumn::cText, fIsAll,         false};
    columns[cNumber] = {"number", "#", tr("The peak's place along the axis."), TTableColumn::cNumber, true, true};
    columns[cPosition] = {
        "position", withUnit(tr("Position"), xUnit), tr("Where the peak is highest."), TTableColumn::cNumber, true,
        true};
    columns[cSecondPosition] = {"position2",
                                withUnit(tr("Position 2"), second),
                                tr("The position in the second unit."),
                                TTableColumn::cNumber,
                                false,
                                second >= 0};
    columns[cIntensity] = {
        "intensity", tr("Intensity"), tr("The value of the spectrum at the peak."), TTableColumn::cNumber, true, true};
    columns[cWidth] = {"width",
                       withUnit(tr("Width"), xUnit),
                       tr("Between the two points at half height over the ground of the peak."),
                       TTableColumn::cNumber,
                       true,
                       true};
    columns[cDirection] = {
        "direction", tr("Direction"), tr("Whether the peak points up or down."), TTableColumn::cText, true, true};
    columns[cAnnotation] = {
        "annotation", tr("Annotation"), tr("Your text, which stands at the label."), TTableColumn::cText, true, true,
        160};
    columns[cOrigin] = {
        "origin", tr("Origin"), tr("Whether you picked the peak or Auto Peak Picking did."), TTableColumn::cText,
        true,     true};
    return columns;
}

QVector<TYrexPeaksTableModel::TRow> TYrexPeaksTableModel::rowsOf(const TCanvasYrexSpectrum &item, int index,
                                                                 int xUnit) const
{
    const TYrexSpectrum &spectrum = *item.stack().at(index);
    const QVector<TYrexDPLib::TYrexDPPeak> peaks = item.dataObj()->peakList(xUnit, index);
    const int count = spectrum.pointCount();
    const double span = YrexMarkPlaces::xAt(spectrum, count - 1, xUnit) - YrexMarkPlaces::xAt(spectrum, 0.0, xUnit);
    QVector<TRow> rows;
    for (int i = 0; i < peaks.size(); ++i) {
        const TYrexDPLib::TYrexDPPeak &stored = *spectrum.peaks().at(i);
        const TYrexPeakWidth::TSpan band = TYrexPeakWidth::measure(spectrum.values(), stored.position, stored.positive);
        TRow row;
        row.fPeak = peaks.at(i);
        row.fSpectrum = index;
        row.fPlace = i;
        row.fYUnit = spectrum.yUnits();
        if (band.isValid())
            row.fWidth = std::abs(YrexMarkPlaces::xAt(spectrum, band.fRight, xUnit) -
                                  YrexMarkPlaces::xAt(spectrum, band.fLeft, xUnit));
        row.fStep = std::abs(span) / qMax(1, count - 1);
        row.fTitle = item.spectrumTitle(index);
        rows.append(row);
    }
    const T1DYrexPlot *plot = item.activeYrexPlot();
    const bool descends = plot && plot->horzAxis().direction() == 1;
    std::stable_sort(rows.begin(), rows.end(), [descends](const TRow &a, const TRow &b) {
        return descends ? a.fPeak.position > b.fPeak.position : a.fPeak.position < b.fPeak.position;
    });
    for (int i = 0; i < rows.size(); ++i)
        rows[i].fNumber = i + 1;
    return rows;
}

/// Copies of a spectrum have peaks of the same ids, so that the spectrum's belongs to a row's.
QString TYrexPeaksTableModel::rowId(const TCanvasYrexSpectrum &item, const TRow &row) const
{
    return QString("%1/%2").arg(item.stack().idOf(row.fSpectrum)).arg(row.fPeak.id.toString());
}

void TYrexPeaksTableModel::read(TCanvasYrexSpectrum *item)
{
    const T1DYrexPlot *plot = item ? item->activeYrexPlot() : nullptr;
    const int xUnit = plot ? plot->xUnits() : int(cUnitArbitrary);
    QVector<TRow> rows;
    if (plot && item->currentSpectrum()) {
        fActive = item->stack().current();
        for (const int spectrum : fIsAll ? item->stack().visibleIndices() : QVector<int>{fActive})
            rows += rowsOf(*item, spectrum, xUnit);
    }
    QVariantList ids;
    for (const TRow &row : qAsConst(rows))
        ids.append(rowId(*item, row));
    replaceRows(makeColumns(xUnit), ids, [&] {
        fItem = TSecurePtr<TCanvasItem>(item);
        fXUnit = xUnit;
        fRows = rows;
    });
}

void TYrexPeaksTableModel::setAllSpectra(bool all)
{
    if (fIsAll == all)
        return;
    fIsAll = all;
    read(item());
}

QSet<QUuid> TYrexPeaksTableModel::activePeaks(const QVector<int> &rows) const
{
    QSet<QUuid> peaks;
    for (const int row : rows) {
        if (fRows.at(row).fSpectrum == fActive)
            peaks.insert(fRows.at(row).fPeak.id);
    }
    return peaks;
}

QVariantList TYrexPeaksTableModel::rowIdsOf(const QSet<QUuid> &peaks) const
{
    QVariantList ids;
    for (int row = 0; row < fRows.size(); ++row) {
        if (fRows.at(row).fSpectrum == fActive && peaks.contains(fRows.at(row).fPeak.id))
            ids.append(TBaseTableViewModel::rowId(row));
    }
    return ids;
}

QString TYrexPeaksTableModel::text(int row, int column) const
{
    const TRow &shown = fRows.at(row);
    switch (column) {
    case cSpectrum:
        return shown.fTitle;
    case cDirection:
        return QString::fromUtf8(shown.fPeak.positive ? "\u2191" : "\u2193");
    case cAnnotation:
        return shown.fPeak.annotation;
    case cOrigin:
        return isAuto(row) ? tr("Auto") : tr("Manual");
    default:
        return QString();
    }
}

QVariant TYrexPeaksTableModel::number(int row, int column) const
{
    const TRow &shown = fRows.at(row);
    const int second = yrexSecondUnit(fXUnit);
    const auto finite = [](double value) { return std::isfinite(value) ? QVariant(value) : QVariant(); };
    switch (column) {
    case cNumber:
        return double(shown.fNumber);
    case cPosition:
        return finite(shown.fPeak.position);
    case cSecondPosition:
        return second < 0 ? QVariant() : finite(yrexConvertX(shown.fPeak.position, fXUnit, second));
    case cIntensity:
        return finite(shown.fPeak.intensity);
    case cWidth:
        return shown.fWidth > 0.0 ? finite(shown.fWidth) : QVariant();
    default:
        return QVariant();
    }
}

int TYrexPeaksTableModel::autoDecimals(int row, int column) const
{
    const TRow &shown = fRows.at(row);
    switch (column) {
    case cPosition:
    case cWidth:
        return decimalsOfStep(shown.fStep);
    case cSecondPosition: {
        const int second = yrexSecondUnit(fXUnit);
        return decimalsOfStep(yrexConvertX(shown.fPeak.position + shown.fStep, fXUnit, second) -
                              yrexConvertX(shown.fPeak.position, fXUnit, second));
    }
    case cIntensity:
        return decimalsOfDigits(shown.fPeak.intensity, cSignificant);
    default:
        return 0;
    }
}

/// Commands reach the active spectrum; the others become it once their row is activated.
bool TYrexPeaksTableModel::isEditable(int row, int column) const
{
    return column == cAnnotation && fRows.at(row).fSpectrum == fActive;
}

QString TYrexPeaksTableModel::toolTip(int row, int column) const
{
    return column == cIntensity ? yrexUnitDisplayName(fRows.at(row).fYUnit) : QString();
}

bool TYrexPeaksTableModel::edit(int row, int, const QString &text)
{
    TCanvasYrexSpectrum *shown = item();
    return shown && fHost.history().push(new TCmdYrexEditPeak(fRows.at(row).fPlace, TCmdYrexEditPeak::cAnnotation, text,
                                                              TCanvasItemList{shown}));
}

/// How strong a band is: where light is missing, by the absorbance.
double TYrexPeaksTableModel::strength(const TRow &row) const
{
    const double value = row.fPeak.intensity;
    switch (row.fYUnit) {
    case cUnitTransmittance:
        return -std::log10(qMax(value, cLowestTransmittance));
    case cUnitPercentTransmittance:
        return -std::log10(qMax(value / 100.0, cLowestTransmittance));
    default:
        return std::abs(value);
    }
}

QString TYrexPeaksTableModel::listText(const QVector<int> &rows) const
{
    constexpr int cMicrometerDecimals = 2;
    const int decimals = this->decimals() >= 0        ? this->decimals()
                         : fXUnit == cUnitMicrometers ? cMicrometerDecimals
                                                      : 0;
    double highest = 0.0;
    for (const int row : rows)
        highest = qMax(highest, strength(fRows.at(row)));
    QStringList peaks;
    for (const int row : rows) {
        const double share = highest > 0.0 ? strength(fRows.at(row)) / highest : 0.0;
        const char *word = share > cStrong ? "s" : share > cMedium ? "m" : "w";
        peaks.append(QString("%1 (%2)").arg(QString::number(position(row), 'f', decimals), word));
    }
    return peaks.join(", ");
}
