#include "TJCAMPYrexExport.h"

#include "TJCAMPYrexInterpreter.h"
#include "TYrexSpectrum.h"
#include "TYrexUnits.h"
#include "jcamp/JCAMPConsts.h"

#include <QFileInfo>
#include <algorithm>

using namespace Consts::JCAMP;

namespace {

constexpr int cOriginId = TSpectrumParam::cOrigin;
constexpr int cOwnerId = TSpectrumParam::cOwner;
constexpr int cInstrumentId = TSpectrumParam::cInstrument;
constexpr int cDateId = TSpectrumParam::cDate;
constexpr int cResolutionId = 2020;

const char *dataTypeFor(const char *chosen, int xUnit)
{
    const bool isRaman = chosen && qstrcmp(chosen, Values::RAMANSPECTRUM) == 0;
    if (xUnit == cUnitRamanShift)
        return Values::RAMANSPECTRUM;
    if (chosen && !(isRaman && xUnit == cUnitWavenumber))
        return chosen;
    return xUnit == cUnitNanometers ? Values::UVVISSPECTRUM : Values::INFRAREDSPECTRUM;
}

const char *xUnitText(int unit)
{
    switch (unit) {
    case cUnitWavenumber:
    case cUnitRamanShift:
        return Values::ONECM;
    case cUnitMicrometers:
        return Values::MICROMETERS;
    case cUnitNanometers:
        return Values::NANOMETERS;
    case cUnitFieldGauss:
        return "GAUSS";
    case cUnitFieldTesla:
        return "TESLA";
    default:
        return Values::ARBITRARYUNITS;
    }
}

const char *yUnitText(int unit)
{
    switch (unit) {
    case cUnitTransmittance:
        return Values::TRANSMITTANCE;
    case cUnitPercentTransmittance:
        return "PERCENT TRANSMITTANCE";
    case cUnitAbsorbance:
        return Values::ABSORBANCE;
    case cUnitReflectance:
        return Values::REFLECTANCE;
    case cUnitCounts:
        return Values::COUNTS;
    case cUnitKubelkaMunk:
        return "KUBELKA-MUNK";
    case cUnitIntensity:
        return "INTENSITY";
    default:
        return Values::ARBITRARYUNITS;
    }
}

/// Whether a reader that goes by YUNITS alone gets this unit and these values.
bool isYPlain(const QByteArray &text, int unit, const QVector<double> &y)
{
    if (TJCAMPYrexInterpreter::yUnitOf(text) != unit)
        return false;
    if (unit != cUnitTransmittance || y.isEmpty())
        return true;
    const double highest = *std::max_element(y.begin(), y.end());
    return highest >= 0.0 && highest < 1.0; // others are scaled, and writing rounds
}

QString longDate(const TYrexSpectrum &spectrum)
{
    constexpr int cDateOnly = 10; // characters of an ISO date
    const QDateTime time = spectrum.acquisitionDate();
    if (!time.isValid())
        return QString();
    QString text = time.toString("yyyy/MM/dd");
    if (spectrum.paramText(cDateId, 1).trimmed().size() <= cDateOnly)
        return text;
    text += time.toString(time.time().msec() == 0 ? " HH:mm:ss" : " HH:mm:ss.zzz");
    if (time.timeSpec() != Qt::LocalTime) {
        const int minutes = time.offsetFromUtc() / 60;
        text += QString(" %1%2%3")
                    .arg(minutes < 0 ? '-' : '+')
                    .arg(std::abs(minutes) / 60, 2, 10, QChar('0'))
                    .arg(std::abs(minutes) % 60, 2, 10, QChar('0'));
    }
    return text;
}

QVector<TJCAMPPeak> peaksOf(const TYrexSpectrum &spectrum)
{
    QVector<TJCAMPPeak> peaks;
    const double step = spectrum.xStep();
    for (const TYrexDPLib::TYrexDPPeak *peak : spectrum.peaks())
        peaks.append({spectrum.firstX() + peak->position * step, peak->intensity, 0.0});
    return peaks;
}

} // namespace

TJCAMPExportData jcampExportData(const TYrexSpectrum &spectrum, const char *dataType)
{
    constexpr int cDimension = 1;
    const int xUnit = spectrum.origXUnits();
    const char *type = dataTypeFor(dataType, xUnit);
    TJCAMPExportData data;
    data.fTitle = spectrum.title();
    if (data.fTitle.isEmpty()) { // a block without a title is none
        data.fTitle = QFileInfo(spectrum.paramsBundle().fileName()).completeBaseName();
        data.fNumber = spectrum.fileNumber();
    }
    data.fOrigin = spectrum.paramText(cOriginId, cDimension);
    data.fOwner = spectrum.paramText(cOwnerId, cDimension);
    data.fDataSystem = spectrum.paramText(cInstrumentId, cDimension);
    data.fResolution = spectrum.paramText(cResolutionId, cDimension);
    data.fDataType = QString::fromLatin1(type);
    data.fLongDate = longDate(spectrum);
    data.fXUnits = QString::fromLatin1(xUnitText(xUnit));
    data.fYUnits = QString::fromLatin1(yUnitText(spectrum.yUnits()));
    data.fFirstX = spectrum.firstX();
    data.fLastX = spectrum.lastX();
    data.fY = spectrum.values();
    data.fPeaks = peaksOf(spectrum);
    const bool isRaman = qstrcmp(type, Values::RAMANSPECTRUM) == 0;
    const auto state = [&data](const char *label, int unit) {
        data.fPrivates.append({QString::fromLatin1(label), yrexUnitScriptName(unit)});
    };
    if (TJCAMPYrexInterpreter::xUnitOf(xUnitText(xUnit), isRaman) != xUnit)
        state(TJCAMPYrexInterpreter::cStatedXUnit, xUnit);
    if (!isYPlain(yUnitText(spectrum.yUnits()), spectrum.yUnits(), spectrum.values()))
        state(TJCAMPYrexInterpreter::cStatedYUnit, spectrum.yUnits());
    return data;
}
