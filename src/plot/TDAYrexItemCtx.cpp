#include "TDAYrexItemCtx.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexPeakPicking.h"
#include "TYrexStackedItemCtx.h"
#include "TYrexUnits.h"

#include <cmath>
#include <limits>

namespace {

constexpr int cSeriesValueId = 13;
const QString cLabelKey = QStringLiteral("Arrayed Label"); // in the data object

/// The sample nearest to a wavenumber, held within the data.
int sampleAt(const TYrexSpectrum &spectrum, double wavenumber)
{
    const int last = spectrum.pointCount() - 1;
    const double x = yrexConvertX(wavenumber, cUnitWavenumber, spectrum.origXUnits());
    const double position = (x - spectrum.firstX()) * last / (spectrum.lastX() - spectrum.firstX());
    if (!(position > 0.0)) // a single point has no position either
        return 0;
    return int(std::round(std::min(position, double(last))));
}

/// The largest intensity of the spectrum's peaks strictly between two samples, or `lowest`. Its own peak list stays.
double highestPeak(TYrexSpectrum &spectrum, int from, int to, double lowest)
{
    const TYrexDPLib::TYrexDPPeakList own = spectrum.peaks();
    spectrum.peaks().clear();
    TYrexPeakPicking::pickInRange(spectrum, 0.0, spectrum.pointCount(), TYrexPeakPicking::openLevel(spectrum));
    double highest = lowest;
    for (const TYrexDPLib::TYrexDPPeak *peak : qAsConst(spectrum.peaks())) {
        if (peak->position > from && peak->position < to)
            highest = std::max(highest, peak->intensity);
    }
    TYrexDPLib::deleteAllPeaks(spectrum.peaks());
    spectrum.peaks() = own;
    return highest;
}

} // namespace

TYrexSpectrum *TDAYrexItemCtx::spectrum(int index) const
{
    return fItem ? fItem->stack().at(index) : nullptr;
}

bool TDAYrexItemCtx::isArrayed() const
{
    return fItem && fItem->isStacked();
}

bool TDAYrexItemCtx::hasSpectra() const
{
    return fItem && fItem->dataObj();
}

QList<quint32> TDAYrexItemCtx::ids() const
{
    return fItem ? fItem->stack().ids() : QList<quint32>();
}

int TDAYrexItemCtx::indexOf(quint32 id) const
{
    return fItem ? fItem->stack().indexOfId(id) : -1;
}

bool TDAYrexItemCtx::date(int index, QDateTime &date) const
{
    const TYrexSpectrum *asked = spectrum(index);
    if (asked)
        date = asked->acquisitionDate();
    return asked != nullptr;
}

bool TDAYrexItemCtx::hasArrayedData(bool &arrayed) const
{
    arrayed = isArrayed();
    const TYrexSpectrum *first = spectrum(0);
    return arrayed && first && first->params().getParam(cSeriesValueId);
}

double TDAYrexItemCtx::arrayedValue(int index) const
{
    return TYrexStackedItemCtx(fItem).arrayedValue(index);
}

bool TDAYrexItemCtx::paramValue(int index, const QString &name, double &value) const
{
    const TYrexSpectrum *asked = spectrum(index);
    const TSpectrumParam *param = asked ? asked->params().getParam(name, false) : nullptr;
    if (param)
        value = param->value().toDouble();
    return param != nullptr;
}

bool TDAYrexItemCtx::regionValue(int index, const TDARegion &region, double from, double to, double &value)
{
    TYrexSpectrum *asked = spectrum(index);
    if (!asked || asked->pointCount() < 1 || asked->values().size() < asked->pointCount())
        return false; // data may have been cleared
    const int a = sampleAt(*asked, from);
    const int b = sampleAt(*asked, to);
    const int low = std::min(a, b);
    const int high = std::max(a, b);
    value = std::numeric_limits<double>::min(); // stays in the sum, where it is far below the data's precision
    if (low == high)
        return true;
    if (region.kind == TDARegion::cSum) {
        for (int i = low; i <= high; ++i)
            value += asked->values().at(i);
        return true;
    }
    if (region.kind != TDARegion::cHighestPeak)
        return false;
    value = highestPeak(*asked, low, high, value);
    return true;
}

int TDAYrexItemCtx::count() const
{
    return fItem ? fItem->stack().count() : 0;
}

QString TDAYrexItemCtx::arrayedLabel() const
{
    return hasSpectra() ? fItem->dataObj()->properties().value(cLabelKey).toString() : QString();
}

void TDAYrexItemCtx::setArrayedLabel(const QString &label)
{
    if (!hasSpectra())
        return;
    if (label.isEmpty())
        fItem->dataObj()->properties().remove(cLabelKey);
    else
        fItem->dataObj()->properties().insert(cLabelKey, label);
}
