#include "TSpcNames.h"

#include "TYrexUnits.h"

namespace {

constexpr const char *cExperiments[] = {"General SPC (could be anything)",
                                        "Gas Chromatogram",
                                        "General Chromatogram (same as SPCGEN with TCGRAM)",
                                        "HPLC Chromatogram",
                                        "FT-IR, FT-NIR, FT-Raman Spectrum or Igram (Can also be scanning IR.)",
                                        "NIR Spectrum",
                                        "-",
                                        "UV-VIS Spectrum",
                                        "X-ray Diffraction Spectrum",
                                        "Mass Spectrum ",
                                        "NMR Spectrum or FID",
                                        "Raman Spectrum",
                                        "Fluorescence Spectrum",
                                        "Atomic Spectrum",
                                        "Chromatography Diode Array Spectra"};

constexpr const char *cXTypes[] = {"Arbitrary",
                                   "Wavenumber (cm-1)",
                                   "Micrometers (um)",
                                   "Nanometers (nm)",
                                   "Seconds",
                                   "Minutes",
                                   "Hertz (Hz)",
                                   "Kilohertz (KHz)",
                                   "Megahertz (MHz)",
                                   "Mass (M/z)",
                                   "Parts per million (PPM)",
                                   "Days",
                                   "Years",
                                   "Raman Shift (cm-1)",
                                   "Electronvolts",
                                   "-",
                                   "Diode Number",
                                   "Channel",
                                   "Degrees",
                                   "Temperature (F)",
                                   "Temperature (C)",
                                   "Temperature (K)",
                                   "Data Points",
                                   "Milliseconds (mSec)",
                                   "Microseconds (uSec)",
                                   "Nanoseconds (nSec)",
                                   "Gigahertz (GHz)",
                                   "Centimeters (cm)",
                                   "Meters (m)",
                                   "Millimeters (mm)",
                                   "Hours",
                                   "Double interferogram (no display labels)"};

constexpr const char *cYTypes[] = {"Arbitrary Intensity",
                                   "Interferogram",
                                   "Absorbance",
                                   "Kubelka-Munk",
                                   "Counts",
                                   "Volts",
                                   "Degrees",
                                   "Milliamps",
                                   "Millimeters",
                                   "Millivolts",
                                   "Log (1/R)",
                                   "Percent",
                                   "Intensity",
                                   "Relative Intensity",
                                   "Energy",
                                   "-",
                                   "Decibel",
                                   "-",
                                   "-",
                                   "Temperature (F)",
                                   "Temperature (C)",
                                   "Temperature (K)",
                                   "Index of Refraction [N]",
                                   "Extinction Coeff. [K]",
                                   "Real",
                                   "Imaginary",
                                   "Complex",
                                   "Transmission",
                                   "Reflectance",
                                   "Arbitrary or Single Beam with Valley Peaks",
                                   "Emission"};

template <int N>
QString nameAt(const char *const (&names)[N], int code)
{
    return code >= 0 && code < N ? QString::fromLatin1(names[code]) : QLatin1String("");
}

} // namespace

QString spcExperimentName(int code)
{
    return nameAt(cExperiments, code);
}

QString spcXTypeName(int code)
{
    return nameAt(cXTypes, code);
}

QString spcYTypeName(int code)
{
    return nameAt(cYTypes, code);
}

int spcXUnit(int xType)
{
    switch (xType) {
    case 0:
        return cUnitArbitrary;
    case 2:
        return cUnitMicrometers;
    case 3:
        return cUnitNanometers;
    case 13:
        return cUnitRamanShift;
    default:
        return cUnitWavenumber;
    }
}

int spcYUnit(int yType, bool oldHeader)
{
    switch (yType) {
    case 2:
        return cUnitAbsorbance;
    case 3:
        return cUnitKubelkaMunk;
    case 4:
        return cUnitCounts;
    case 12:
        return oldHeader ? cUnitArbitrary : cUnitIntensity;
    case 128:
        return cUnitTransmittance;
    case 129:
        return cUnitReflectance;
    default:
        return cUnitArbitrary;
    }
}
