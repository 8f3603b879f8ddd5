#include "TYrexSpecDataObj.h"

#include "TYrexUnits.h"

#include <QCoreApplication>
#include <QHash>
#include <algorithm>
#include <atomic>
#include <cmath>

namespace {

/// Whether the chain only shows a baseline at present, so that the multipoint anchors stay out of sight.
bool showsBaselineOnly(const QVariantList &actions)
{
    constexpr int cAutoBaseline = 22;
    for (const QVariant &action : actions) {
        const QVariantMap map = action.toMap();
        if (map.value("yrexProcOpId").toInt() == cAutoBaseline && map.value("apply").toBool() &&
            map.value("alsbaselineshowonly").toBool())
            return true;
    }
    return false;
}

QString xAxisTitle(int code)
{
    switch (code) {
    case cUnitWavenumber:
        return QCoreApplication::translate("TCanvasYrexSpectrum", "Wavenumber [cm^-1]");
    case cUnitMicrometers:
        return QCoreApplication::translate("TCanvasYrexSpectrum", "Wavelength [μm]");
    case cUnitNanometers:
        return QCoreApplication::translate("TCanvasYrexSpectrum", "Wavelength [nm]");
    case cUnitRamanShift:
        return QCoreApplication::translate("TCanvasYrexSpectrum", "Raman Shift [cm^-1]");
    case cUnitFieldGauss:
        return QCoreApplication::translate("TCanvasYrexSpectrum", "Field [G]");
    case cUnitFieldTesla:
        return QCoreApplication::translate("TCanvasYrexSpectrum", "Field [T]");
    case cUnitArbitrary:
        return QCoreApplication::translate("TCanvasYrexSpectrum", "Arbitrary Units");
    default:
        return QString();
    }
}

QString yAxisTitle(int code)
{
    switch (code) {
    case cUnitTransmittance:
        return QCoreApplication::translate("TCanvasYrexSpectrum", "Transmittance");
    case cUnitPercentTransmittance:
        return QCoreApplication::translate("TCanvasYrexSpectrum", "% Transmittance");
    case cUnitAbsorbance:
        return QCoreApplication::translate("TCanvasYrexSpectrum", "Absorbance");
    case cUnitReflectance:
        return QCoreApplication::translate("TCanvasYrexSpectrum", "Reflectance");
    case cUnitCounts:
        return QCoreApplication::translate("TCanvasYrexSpectrum", "Counts");
    case cUnitKubelkaMunk:
        return QCoreApplication::translate("TCanvasYrexSpectrum", "K-M Absorption Coef.");
    case cUnitIntensity:
        return QCoreApplication::translate("TCanvasYrexSpectrum", "Intensity");
    case cUnitArbitrary:
        return QCoreApplication::translate("TCanvasYrexSpectrum", "Arbitrary Units");
    default:
        return QString();
    }
}

/// Data objects of parallel jobs number their axes too.
quint64 newStamp()
{
    static std::atomic<quint64> cLast{0};
    return ++cLast;
}

template <typename TMap>
void dropForeign(TMap &cache, const QSet<quint32> &known)
{
    for (auto it = cache.begin(); it != cache.end();)
        it = known.contains(it.key()) ? std::next(it) : cache.erase(it);
}

} // namespace

TYrexSpecDataObj::TYrexSpecDataObj(const QUuid &id, const TYrexSpectrumList &spectra)
    : TYrexDataObj(id)
{
    for (TYrexSpectrum *spectrum : spectra)
        fStack.append(spectrum);
}

TYrexSpectrum *TYrexSpecDataObj::spectrumAt(int specIndex) const
{
    return fStack.contains(specIndex) ? fStack.at(specIndex) : fStack.currentSpectrum();
}

quint32 TYrexSpecDataObj::idAt(int specIndex) const
{
    return fStack.idOf(fStack.contains(specIndex) ? specIndex : fStack.current());
}

void TYrexSpecDataObj::listChanged()
{
    findExtremes(); // of a spectrum that may be gone
    const QSet<quint32> known(fStack.ids().begin(), fStack.ids().end());
    dropForeign(fXCache, known);
    dropForeign(fYCache, known);
    dropForeign(fFlagCache, known);
}

void TYrexSpecDataObj::giveFileNumbers()
{
    QHash<QString, TYrexSpectrumList> byFile;
    for (TYrexSpectrum *spectrum : fStack.items()) {
        if (!spectrum->paramsBundle().fileName().isEmpty())
            byFile[spectrum->paramsBundle().fileName()].append(spectrum);
    }
    for (const TYrexSpectrumList &spectra : qAsConst(byFile)) {
        const bool isNumbered = std::any_of(spectra.begin(), spectra.end(),
                                            [](const TYrexSpectrum *spectrum) { return spectrum->fileNumber() > 0; });
        for (int i = 0; i < spectra.size() && spectra.size() > 1 && !isNumbered; ++i)
            spectra.at(i)->setFileNumber(i + 1);
    }
}

int TYrexSpecDataObj::cachedCount() const
{
    QSet<quint32> ids;
    for (const quint32 id : fXCache.keys() + fYCache.keys() + fFlagCache.keys())
        ids.insert(id);
    return ids.size();
}

const TYrexSpectrum *TYrexSpecDataObj::firstVisible() const
{
    const QVector<int> visible = fStack.visibleIndices();
    return visible.isEmpty() ? nullptr : fStack.at(visible.first());
}

int TYrexSpecDataObj::origXUnits() const
{
    const TYrexSpectrum *spectrum = firstVisible();
    return spectrum ? spectrum->origXUnits() : int(cUnitArbitrary);
}

int TYrexSpecDataObj::origYUnits() const
{
    const TYrexSpectrum *spectrum = firstVisible();
    return spectrum ? spectrum->origYUnits() : int(cUnitArbitrary);
}

double TYrexSpecDataObj::firstX() const
{
    const TYrexSpectrum *spectrum = firstVisible();
    return spectrum ? spectrum->firstX() : 0.0;
}

double TYrexSpecDataObj::lastX() const
{
    const TYrexSpectrum *spectrum = firstVisible();
    return spectrum ? spectrum->lastX() : 0.0;
}

QVector<int> TYrexSpecDataObj::deselectedVisibleIndices() const
{
    QVector<int> indices;
    for (const int index : fStack.visibleIndices()) {
        if (fStack.isDeselected(index))
            indices.append(index);
    }
    return indices;
}

void TYrexSpecDataObj::deselectedPositions(QVector<int> &positions, QVector<int> &groupSizes) const
{
    const QVector<int> deselected = deselectedVisibleIndices();
    if (deselected.isEmpty())
        return;
    const QVector<int> rows = fStack.displayPositions();
    const bool isGrouped = fStack.grouped() == 1;
    const auto groups = isGrouped ? fStack.classGroups(false) : QVector<TYrexStack::TGroup>();
    for (const int index : deselected) {
        const int row = rows.at(index);
        if (row >= 0)
            positions.append(row);
        groupSizes.append(isGrouped && row >= 0 ? groups.at(row).second.size() : 1);
    }
}

QVector<int> TYrexSpecDataObj::displayIndices() const
{
    if (fStack.grouped() != 1)
        return visibleIndices();
    QVector<int> indices;
    for (const QVector<int> &group : displayGroups(true))
        indices.append(group.first());
    return indices;
}

QVector<QVector<int>> TYrexSpecDataObj::displayGroups(bool visibleOnly) const
{
    QHash<const TYrexSpectrum *, int> indexOf;
    for (int i = 0; i < fStack.count(); ++i)
        indexOf.insert(fStack.at(i), i);
    QVector<QVector<int>> groups;
    for (const TYrexStack::TGroup &group : fStack.classGroups(visibleOnly)) {
        QVector<int> indices;
        for (const TYrexSpectrum *spectrum : group.second)
            indices.append(indexOf.value(spectrum));
        groups.append(indices);
    }
    return groups;
}

QString TYrexSpecDataObj::description() const
{
    return QStringLiteral("Infrared Zarnu Spectrum");
}

double TYrexSpecDataObj::xBound(int unit, bool low) const
{
    const TYrexSpectrum *spectrum = fStack.currentSpectrum();
    if (!spectrum)
        return 0.0;
    const double smaller = qMin(spectrum->firstX(), spectrum->lastX());
    const double larger = qMax(spectrum->firstX(), spectrum->lastX());
    double value = 0.0;
    switch (spectrum->origXUnits()) {
    case cUnitWavenumber: // from high to low
        value = low ? larger : smaller;
        break;
    case cUnitMicrometers:
    case cUnitNanometers: // as wavenumbers, hence the smaller wavelength first
        value = yrexWavenumberTo(low ? smaller : larger, spectrum->origXUnits());
        break;
    case cUnitRamanShift:
    case cUnitFieldGauss:
    case cUnitFieldTesla:
    case cUnitArbitrary:
        value = low ? smaller : larger;
        break;
    default:
        break;
    }
    return unit == cUnitWavenumber ? value : yrexWavenumberTo(value, unit);
}

double TYrexSpecDataObj::xMin(int unit) const
{
    return xBound(unit, true);
}

double TYrexSpecDataObj::xMax(int unit) const
{
    return xBound(unit, false);
}

/// A draw asks for the values of every spectrum, and for the extremes of none.
void TYrexSpecDataObj::findExtremes() const
{
    if (!fIsAsked)
        return;
    TYrexSpectrum::minMax(fAskedLast, fYMin, fYMax);
    fAskedLast.clear();
    fIsAsked = false;
}

double TYrexSpecDataObj::yMin() const
{
    findExtremes();
    return fYMin;
}

double TYrexSpecDataObj::yMax() const
{
    findExtremes();
    return fYMax;
}

TYrexDataView TYrexSpecDataObj::xData(int unit, int specIndex)
{
    const TYrexSpectrum *spectrum = spectrumAt(specIndex);
    if (!spectrum)
        return {};
    TCachedAxis &cached = fXCache[idAt(specIndex)];
    const int count = spectrum->pointCount();
    const double step = spectrum->xStep();
    const int from = spectrum->origXUnits();
    double x = spectrum->firstX();
    if (cached.fStamp == 0 || cached.fUnit != unit || cached.fStoredUnit != from || cached.fFirst != x ||
        cached.fStep != step || cached.fValues.size() != count) {
        cached.fUnit = unit;
        cached.fStoredUnit = from;
        cached.fFirst = x;
        cached.fStep = step;
        cached.fStamp = newStamp();
        cached.fValues.resize(count);
        double *values = cached.fValues.data();
        // the sum of steps, not their product, is what everything downstream is used to, rounding included
        for (int i = 0; i < count; ++i, x += step)
            values[i] = yrexConvertX(x, from, unit);
    }
    TYrexDataView view = TYrexDataView::ofAxis(cached.fValues);
    view.stamp = cached.fStamp;
    return view;
}

TYrexDataView TYrexSpecDataObj::yData(int, int specIndex)
{
    const TYrexSpectrum *spectrum = spectrumAt(specIndex);
    if (!spectrum)
        return {};
    TCachedArray &cached = fYCache[idAt(specIndex)];
    cached.fUnit = spectrum->yUnits();
    cached.fValues = spectrum->values(); // shared until the spectrum changes
    fAskedLast = cached.fValues;
    fIsAsked = true;
    TYrexDataView view(cached.fValues);
    view.count = qMin(view.count, spectrum->pointCount());
    return view;
}

TYrexDataView TYrexSpecDataObj::previewYData(int, int specIndex)
{
    const TYrexSpectrum *spectrum = spectrumAt(specIndex);
    if (!spectrum || !spectrum->preview())
        return {};
    TCachedArray &cached = fYCache[idAt(specIndex)];
    cached.fUnit = spectrum->yUnits();
    const int count = qMin(spectrum->pointCount(), spectrum->previewSize());
    cached.fValues = QVector<double>(spectrum->preview(), spectrum->preview() + count);
    return TYrexDataView(cached.fValues);
}

TYrexDataView TYrexSpecDataObj::baselineXData(int unit, int specIndex)
{
    const TYrexSpectrum *spectrum = spectrumAt(specIndex);
    if (!spectrum || showsBaselineOnly(spectrum->procParams().actions()))
        return {};
    TCachedAxis &cached = fXCache[idAt(specIndex)];
    cached.fStamp = 0;
    cached.fUnit = unit;
    cached.fValues.clear();
    for (const TYrexBaselinePoint &point : spectrum->procParams().multipoint().points)
        cached.fValues.append(
            yrexConvertX(point.x * spectrum->xStep() + spectrum->firstX(), spectrum->origXUnits(), unit));
    return TYrexDataView::ofAxis(cached.fValues);
}

TYrexDataView TYrexSpecDataObj::baselineYData(int, int specIndex)
{
    const TYrexSpectrum *spectrum = spectrumAt(specIndex);
    if (!spectrum || spectrum->procParams().multipoint().points.isEmpty())
        return {};
    TCachedArray &cached = fYCache[idAt(specIndex)];
    cached.fUnit = spectrum->yUnits();
    cached.fValues.clear();
    for (const TYrexBaselinePoint &point : spectrum->procParams().multipoint().points)
        cached.fValues.append(point.y);
    return TYrexDataView(cached.fValues);
}

QVector<char> TYrexSpecDataObj::baselineFlagData(int specIndex)
{
    const TYrexSpectrum *spectrum = spectrumAt(specIndex);
    if (!spectrum)
        return {};
    QVector<char> &flags = fFlagCache[idAt(specIndex)];
    flags.clear();
    for (const TYrexBaselinePoint &point : spectrum->procParams().multipoint().points)
        flags.append(char(point.kind == 1));
    return flags;
}

QVector<char> TYrexSpecDataObj::baselineKinds(int specIndex)
{
    QVector<char> kinds;
    if (const TYrexSpectrum *spectrum = spectrumAt(specIndex)) {
        for (const TYrexBaselinePoint &point : spectrum->procParams().multipoint().points)
            kinds.append(char(point.kind));
    }
    return kinds;
}

bool TYrexSpecDataObj::hasPeaks() const
{
    const TYrexSpectrum *spectrum = fStack.at(currentIndex());
    return spectrum && !spectrum->peaks().isEmpty();
}

TYrexIntegrationRegions TYrexSpecDataObj::integralRegions(int unit, int specIndex) const
{
    TYrexIntegrationRegions regions;
    const TYrexSpectrum *spectrum = spectrumAt(specIndex);
    if (!spectrum)
        return regions;
    regions = spectrum->integrals();
    const double pointsPerX = (spectrum->pointCount() - 1) / (spectrum->lastX() - spectrum->firstX());
    const auto toX = [&](double position) {
        return yrexConvertX(position / pointsPerX + spectrum->firstX(), spectrum->origXUnits(), unit);
    };
    for (int i = 0; i < regions.count(); ++i) {
        TYrexIntegrationRegion *region = regions.at(i);
        region->boundA = toX(region->boundA);
        region->boundB = toX(region->boundB);
    }
    return regions;
}

QVector<TYrexDPLib::TYrexDPPeak> TYrexSpecDataObj::peakList(int unit, int specIndex) const
{
    QVector<TYrexDPLib::TYrexDPPeak> peaks;
    const TYrexSpectrum *spectrum = spectrumAt(specIndex);
    if (!spectrum)
        return peaks;
    const QVector<double> &y = spectrum->values();
    for (const TYrexDPLib::TYrexDPPeak *peak : spectrum->peaks()) {
        TYrexDPLib::TYrexDPPeak shown = *peak;
        const double index = std::floor(peak->position);
        if (index >= 0.0 && index < double(y.size()))
            shown.intensity = y.at(int(index));
        shown.position =
            yrexConvertX(peak->position * spectrum->xStep() + spectrum->firstX(), spectrum->origXUnits(), unit);
        peaks.append(shown);
    }
    return peaks;
}

QString TYrexSpecDataObj::axisTitle(int yAxis) const
{
    const TYrexSpectrum *spectrum = fStack.currentSpectrum();
    if (kind() != 0 || !spectrum)
        return QString();
    if (yAxis == 0)
        return xAxisTitle(spectrum->xUnits());
    return yAxis == 1 ? yAxisTitle(spectrum->yUnits()) : QString();
}
