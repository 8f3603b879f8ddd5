#include "TYrexUnitSetting.h"

#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexSetOrigUnits.h"
#include "TYrexUnits.h"

#include <QFile>
#include <algorithm>

namespace {

constexpr int cMaxFirstLine = 4096; // bytes; a first line of numbers may be as long as the file

constexpr int cXUnits[] = {cUnitWavenumber, cUnitNanometers, cUnitMicrometers, cUnitRamanShift,
                           cUnitFieldGauss, cUnitFieldTesla, cUnitArbitrary};
constexpr int cYUnits[] = {cUnitAbsorbance, cUnitTransmittance, cUnitPercentTransmittance, cUnitReflectance,
                           cUnitCounts,     cUnitIntensity,     cUnitKubelkaMunk,          cUnitArbitrary};

QByteArray firstLineOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readLine(cMaxFirstLine) : QByteArray();
}

bool isAmong(const QList<TUnitChoice> &choices, int code)
{
    return std::any_of(choices.begin(), choices.end(), [code](const TUnitChoice &one) { return one.fCode == code; });
}

} // namespace

bool TYrexUnitSetting::isUnknown(TCanvasItem *item)
{
    const TCanvasYrexSpectrum *spectra = yrexItem(item);
    if (!spectra || spectra->spectra().isEmpty())
        return false;
    return std::all_of(spectra->spectra().begin(), spectra->spectra().end(), [](const TYrexSpectrum *one) {
        return one->origXUnits() == cUnitArbitrary && one->origYUnits() == cUnitArbitrary;
    });
}

QList<TUnitChoice> TYrexUnitSetting::choices(TAxisDir axis)
{
    QList<TUnitChoice> list;
    const auto add = [&list](int code) { list.append({code, yrexUnitDisplayName(code)}); };
    if (axis == horzDir)
        std::for_each(std::begin(cXUnits), std::end(cXUnits), add);
    else
        std::for_each(std::begin(cYUnits), std::end(cYUnits), add);
    return list;
}

int TYrexUnitSetting::guessX(double low, double high, const QByteArray &firstLine)
{
    const double span = high - low;
    if (firstLine.toLower().contains("raman"))
        return cUnitRamanShift;
    if (high > 4400.0 || (low >= 380.0 && high <= 4400.0 && span > 1500.0))
        return cUnitWavenumber;
    if (low >= 150.0 && high <= 1100.0)
        return cUnitNanometers;
    if (low >= 700.0 && high <= 2600.0 && span < 2000.0)
        return cUnitNanometers;
    return cUnitArbitrary;
}

TUnitPair TYrexUnitSetting::guess(TCanvasItem *item, const QString &fileName)
{
    TUnitPair units{cUnitArbitrary, cUnitArbitrary};
    const TCanvasYrexSpectrum *spectra = yrexItem(item);
    if (const TYrexSpectrum *spectrum = spectra ? spectra->currentSpectrum() : nullptr) {
        const auto ends = std::minmax({spectrum->firstX(), spectrum->lastX()});
        units.fX = guessX(ends.first, ends.second, firstLineOf(fileName));
    }
    return units;
}

QList<TCommand *> TYrexUnitSetting::commands(const TCanvasItemList &items, const TUnitPair &units)
{
    if (items.isEmpty() || !isAmong(choices(horzDir), units.fX) || !isAmong(choices(vertDir), units.fY))
        return {};
    return {new TCmdYrexSetOrigUnits(items, horzDir, units.fX, TCmdYrexSetOrigUnits::cAllSpectra),
            new TCmdYrexSetOrigUnits(items, vertDir, units.fY, TCmdYrexSetOrigUnits::cAllSpectra)};
}
