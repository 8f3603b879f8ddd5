#include "T1DYrexPlot.h"

#include "IYrexPlotData.h"
#include "IYrexPlotable.h"
#include "TYrexDataView.h"
#include "TYrexUnits.h"
#include "plot/TPlotHotArea.h"

#include <QCoreApplication>

namespace {

QString vertLabel(int units)
{
    switch (units) {
    case cUnitTransmittance:
        return QCoreApplication::translate("T1DYrexPlot", "Transmittance");
    case cUnitPercentTransmittance:
        return QCoreApplication::translate("T1DYrexPlot", "% Transmittance");
    case cUnitAbsorbance:
        return QCoreApplication::translate("T1DYrexPlot", "Absorbance");
    case cUnitReflectance:
        return QCoreApplication::translate("T1DYrexPlot", "Reflectance");
    case cUnitCounts:
        return QCoreApplication::translate("T1DYrexPlot", "Counts");
    case cUnitKubelkaMunk:
        return QCoreApplication::translate("T1DYrexPlot", "K-M Absorption Coef.");
    case cUnitIntensity:
        return QCoreApplication::translate("T1DYrexPlot", "Intensity");
    case cUnitArbitrary:
        return QCoreApplication::translate("T1DYrexPlot", "Arbitrary Units");
    default:
        return QString();
    }
}

} // namespace

QString T1DYrexPlot::horzLabel(int units)
{
    switch (units) {
    case cUnitMicrometers:
        return QCoreApplication::translate("T1DYrexPlot", "Wavelength [μm]");
    case cUnitNanometers:
        return QCoreApplication::translate("T1DYrexPlot", "Wavelength [nm]");
    case cUnitRamanShift:
        return QCoreApplication::translate("T1DYrexPlot", "Raman Shift [cm^-1]");
    case cUnitFieldGauss:
        return QCoreApplication::translate("T1DYrexPlot", "Field (G)");
    case cUnitFieldTesla:
        return QCoreApplication::translate("T1DYrexPlot", "Field (T)");
    case cUnitArbitrary:
        return QCoreApplication::translate("T1DYrexPlot", "Arbitrary Units");
    default:
        return QCoreApplication::translate("T1DYrexPlot", "Wavenumber [cm^-1]");
    }
}

T1DYrexPlot::T1DYrexPlot(int kind, const QUuid &dataId, IYrexPlotable *plotable)
    : T1DStackedPlot(cPlotType, dataId)
    , fPlotable(plotable)
    , fPlotKind(kind)
    , fPlotter(this)
{
}

QString T1DYrexPlot::kindName() const
{
    return fPlotKind == cSpectrumKind ? QStringLiteral("Zarnu Spec") : QString();
}

IYrexPlotData *T1DYrexPlot::data() const
{
    return fPlotable ? fPlotable->plotData(id()) : nullptr;
}

bool T1DYrexPlot::isArrayed() const
{
    const IYrexPlotData *plotData = data();
    return plotData && plotData->spectrumCount() >= 2;
}

int T1DYrexPlot::activeIndex() const
{
    const IYrexPlotData *plotData = data();
    return plotData ? plotData->currentIndex() : 0;
}

void T1DYrexPlot::fitStackAxis()
{
    IYrexPlotData *plotData = data();
    if (!plotData || plotData->spectrumCount() < 2)
        return;
    const auto range = plotData->axisRange(2, cUnitArbitrary, fYUnits);
    setFullScale(stackIndexAxis(), stackIndexRanges(), range.first, range.second);
    stackIndexAxis().setScaleToFull();
}

QStringList T1DYrexPlot::numberedLabels() const
{
    QStringList labels;
    const IYrexPlotData *plotData = data();
    if (!plotData || !isStacked())
        return labels;
    for (const int index : plotData->visibleIndices())
        labels.append(QString::number(index + 1));
    return labels;
}

void T1DYrexPlot::setAxisLabels(int mask, const QString &text)
{
    const IYrexPlotData *plotData = data();
    for (const TAxisDir dir : {horzDir, vertDir}) {
        if (!(mask & dir))
            continue;
        const bool fromData = (fAxisLabelFlags & dir) && plotData;
        setAxisLabel(dir, fromData ? plotData->axisTitle(dir == horzDir ? 0 : 1) : text);
    }
}

void T1DYrexPlot::setAxisUnits(TAxisDir axis, int units)
{
    if (axis == horzDir) {
        fXUnits = units;
        if (units <= cUnitArbitrary)
            setAxisLabels(horzDir, horzLabel(units));
        return;
    }
    fYUnits = units;
    const QString label = vertLabel(units);
    if (!label.isEmpty())
        setAxisLabels(vertDir, label);
}

void T1DYrexPlot::showUnits(IYrexPlotData &plotData, TAxisDir axisDir, int units, bool useOriginal, bool converts)
{
    const int oldUnits = axisDir == horzDir ? fXUnits : fYUnits;
    setAxisUnits(axisDir, units);
    TRange scale = axis(axisDir).getScale();
    QVector<TRange> hidden = ranges(axisDir).invert(axis(axisDir).getFullScale()).toVector();
    if (axisDir == horzDir) {
        const auto convert = [&](double x) {
            return yrexConvertX(yrexConvertX(x, oldUnits, cUnitWavenumber), cUnitWavenumber, units);
        };
        if (converts && oldUnits != units) {
            scale.setRange(convert(scale.a), convert(scale.b));
            for (TRange &range : hidden)
                range.setRange(convert(range.a), convert(range.b));
        }
        resetFullScales(plotData, horzDir, useOriginal);
        const TRange full = axis(axisDir).getFullScale();
        if ((full.a > full.b) != (scale.a > scale.b)) // units that run in the other direction
            std::swap(scale.a, scale.b);
    }
    setScale(axisDir, scale.a, scale.b);
    for (const TRange &range : qAsConst(hidden))
        hideRange(axisDir, range);
    if (axisDir == vertDir)
        fitToHeight();
}

void T1DYrexPlot::changeUnits(TAxisDir axisDir, int units, bool useOriginal)
{
    IYrexPlotData *plotData = data();
    if (plotData && (axisDir == horzDir || axisDir == vertDir))
        showUnits(*plotData, axisDir, units, useOriginal, true);
}

void T1DYrexPlot::relabelUnits(TAxisDir axisDir, int units)
{
    IYrexPlotData *plotData = data();
    if (plotData && (axisDir == horzDir || axisDir == vertDir))
        showUnits(*plotData, axisDir, units, false, false);
}

/// A full scale in the direction in which an axis runs: wavenumbers from high to low, whatever the properties say.
TRange T1DYrexPlot::directed(TAxisDir dir, double low, double high) const
{
    const bool isWavenumber = dir == horzDir && fXUnits == cUnitWavenumber;
    const bool isReversed = (dir == horzDir ? properties().horzAxis : properties().vertAxis).reversed;
    return isWavenumber || isReversed ? TRange(high, low) : TRange(low, high);
}

QString T1DYrexPlot::whyNotReversed(TAxisDir dir) const
{
    if (dir == horzDir && fXUnits == cUnitWavenumber)
        return QCoreApplication::translate("T1DYrexPlot", "Wavenumbers always run from high to low.");
    if (dir == vertDir && isArrayed() && hasRows())
        return QCoreApplication::translate("T1DYrexPlot", "Needs a display in which all spectra share one axis.");
    return QString();
}

void T1DYrexPlot::setReversed(TAxisDir dir, bool reversed)
{
    (dir == horzDir ? properties().horzAxis : properties().vertAxis).reversed = reversed;
    TAxis &turned = dir == horzDir ? hAxis() : isArrayed() ? intensityAxis() : vAxis();
    const TRange full = turned.getFullScale();
    const TRange scale = turned.getScale();
    if (full.isReversed() == directed(dir, full.lo(), full.hi()).isReversed())
        return;
    turned.setFullScale(full.b, full.a);
    turned.setScale(scale.b, scale.a);
}

void T1DYrexPlot::resetFullScales(IYrexPlotData &plotData, int mask, bool useOriginal)
{
    if (mask & horzDir) {
        const auto range = useOriginal ? plotData.realXRange() : plotData.axisRange(0, fXUnits, fYUnits);
        const TRange full = directed(horzDir, qMin(range.first, range.second), qMax(range.first, range.second));
        setFullScale(horzDir, full.a, full.b);
    }
    if (!(mask & vertDir))
        return;
    plotData.axisData(1, fYUnits, plotData.currentIndex()); // else the range is that of whatever was drawn last
    const auto range = plotData.axisRange(1, fXUnits, fYUnits);
    // the pair is swapped for transmittance and for flat data; intensities grow upwards unless the axis is reversed
    const double most = qMax(range.first, range.second);
    const TRange heights = directed(vertDir, qMin(range.first, range.second), most);
    if (!isArrayed()) {
        setFullScale(vertDir, heights.a, heights.b);
        return;
    }
    const auto rows = plotData.axisRange(2, cUnitArbitrary, fYUnits);
    setFullScale(intensityAxis(), intensityRanges(), heights.a, heights.b);
    setFullScale(stackIndexAxis(), stackIndexRanges(), rows.first, rows.second);
    setFullScale(symmetricAxis(), symmetricRanges(), -most, most);
}

void T1DYrexPlot::refreshFullScales(int mask, bool useOriginal)
{
    IYrexPlotData *plotData = data();
    if (!plotData)
        return;
    resetFullScales(*plotData, mask, useOriginal);
    fitToHeight();
}

void T1DYrexPlot::resetView()
{
    if (IYrexPlotData *plotData = data()) {
        resetFullScales(*plotData, horzDir | vertDir, false);
        fitToHeight();
    }
    setScaleToFull(horzDir | vertDir);
    if (!isArrayed()) {
        showAll(horzDir | vertDir);
        return;
    }
    showAll(horzDir);
    const auto showAxis = [](TAxis &axis, TRanges &ranges) {
        axis.setScaleToFull();
        ranges.showAll(axis.getFullScale());
    };
    showAxis(intensityAxis(), intensityRanges());
    showAxis(stackIndexAxis(), stackIndexRanges());
    showAxis(symmetricAxis(), symmetricRanges());
}

QColor T1DYrexPlot::curveColor() const
{
    QColor plain = properties().curvePen.color();
    const IYrexPlotData *plotData = data();
    if (!plotData || !isArrayed())
        return plain;
    const int position = plotData->visibleIndices().indexOf(plotData->currentIndex());
    const QColor color = position < 0 ? QColor() : stackedProperties().arrayedColor(plotData->currentIndex());
    return color.isValid() ? color : plain;
}

void T1DYrexPlot::setIntegralHighlighted(const QUuid &integral, bool on)
{
    if (!on)
        fHighlightedIntegrals.removeAll(integral);
    else if (!fHighlightedIntegrals.contains(integral))
        fHighlightedIntegrals.append(integral);
}

bool T1DYrexPlot::clearHighlightedIntegrals()
{
    const bool held = !fHighlightedIntegrals.isEmpty();
    fHighlightedIntegrals.clear();
    return held;
}
