#include "TYrexUnits.h"

namespace {

struct TUnitNames
{
    int fCode;
    const char *fDisplay;
    const char *fScript;
};

constexpr TUnitNames cUnitNames[] = {
    {cUnitWavenumber, "Wavenumber", "wavenumber"},
    {cUnitMicrometers, "Micrometers", "micrometers"},
    {cUnitNanometers, "Nanometers", "nanometers"},
    {cUnitRamanShift, "Raman Shift", "Raman shift"},
    {cUnitTransmittance, "Transmittance", "transmittance"},
    {cUnitPercentTransmittance, "Percent Transmittance", "percent transmittance"},
    {cUnitAbsorbance, "Absorbance", "absorbance"},
    {cUnitReflectance, "Reflectance", "reflectance"},
    {cUnitCounts, "Counts", "counts"},
    {cUnitKubelkaMunk, "K-M Absorption Coef.", "Kubelka-Munk"},
    {cUnitFieldGauss, "Field (G)", "Gauss"},
    {cUnitFieldTesla, "Field (T)", "Tesla"},
    {cUnitIntensity, "Intensity", "intensity"},
    {cUnitArbitrary, "Arbitrary", "arbitrary"},
};

struct TScriptText
{
    const char *fText;
    int fCode;
};

constexpr TScriptText cScriptTexts[] = {
    {"wavenumber", cUnitWavenumber},
    {"cm-1", cUnitWavenumber},
    {"raman", cUnitRamanShift},
    {"raman shift", cUnitRamanShift},
    {"micrometers", cUnitMicrometers},
    {"nanometers", cUnitNanometers},
    {"transmittance", cUnitTransmittance},
    {"%transmittance", cUnitPercentTransmittance},
    {"percent transmittance", cUnitPercentTransmittance},
    {"absorbance", cUnitAbsorbance},
    {"reflectance", cUnitReflectance},
    {"arbitrary", cUnitArbitrary},
    {"intensity", cUnitIntensity},
    {"counts", cUnitCounts},
    {"gauss", cUnitFieldGauss},
    {"tesla", cUnitFieldTesla},
    {"kubelka-munk", cUnitKubelkaMunk},
    {"km", cUnitKubelkaMunk},
    {"k-m", cUnitKubelkaMunk},
};

constexpr double cMicrometersPerCentimeter = 10000.0;
constexpr double cNanometersPerCentimeter = 1e7;

const TUnitNames *unitNames(int code)
{
    for (const TUnitNames &names : cUnitNames) {
        if (names.fCode == code)
            return &names;
    }
    return nullptr;
}

} // namespace

bool yrexIsHorizontalUnit(int code)
{
    switch (code) {
    case cUnitWavenumber:
    case cUnitMicrometers:
    case cUnitNanometers:
    case cUnitRamanShift:
    case cUnitFieldGauss:
    case cUnitFieldTesla:
    case cUnitArbitrary:
        return true;
    default:
        return false;
    }
}

QString yrexUnitDisplayName(int code)
{
    const TUnitNames *names = unitNames(code);
    return names ? QString::fromLatin1(names->fDisplay) : QString();
}

QString yrexUnitShortName(int code)
{
    switch (code) {
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

int yrexSecondUnit(int code)
{
    switch (code) {
    case cUnitWavenumber:
        return cUnitNanometers;
    case cUnitNanometers:
    case cUnitMicrometers:
        return cUnitWavenumber;
    default:
        return -1;
    }
}

QString yrexUnitScriptName(int code)
{
    const TUnitNames *names = unitNames(code);
    return QString::fromLatin1(names ? names->fScript : "AbsIntensity");
}

bool yrexUnitFromScriptName(const QString &text, int &code)
{
    for (const TScriptText &entry : cScriptTexts) {
        if (text.compare(QLatin1String(entry.fText), Qt::CaseInsensitive) == 0) {
            code = entry.fCode;
            return true;
        }
    }
    return false;
}

double yrexWavenumberTo(double value, int unit)
{
    if (unit == cUnitMicrometers)
        return cMicrometersPerCentimeter / value;
    if (unit == cUnitNanometers)
        return cNanometersPerCentimeter / value;
    return value;
}

double yrexConvertX(double value, int fromUnit, int toUnit)
{
    const auto isFixed = [](int unit) { return unit == cUnitArbitrary || unit == cUnitRamanShift; };
    if (fromUnit == toUnit || isFixed(fromUnit) || isFixed(toUnit))
        return value;
    // the conversion is its own inverse: 10000/x both ways
    return yrexWavenumberTo(yrexWavenumberTo(value, fromUnit), toUnit);
}
