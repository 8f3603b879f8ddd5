#pragma once

#include <QString>

/// Codes of axis units. One table serves x and y; the numbers are persisted.
enum TYrexUnit {
    cUnitWavenumber = 0,
    cUnitMicrometers = 1,
    cUnitNanometers = 2,
    cUnitRamanShift = 3,
    cUnitTransmittance = 10,
    cUnitPercentTransmittance = 11,
    cUnitAbsorbance = 12,
    cUnitReflectance = 13,
    cUnitCounts = 14,
    cUnitKubelkaMunk = 15,
    cUnitFieldGauss = 16,
    cUnitFieldTesla = 17,
    cUnitIntensity = 18,
    cUnitArbitrary = 50 // for both axes, and the neutral y unit of a stack of mixed units
};

/// Whether a unit can stand on the horizontal axis; arbitrary units can on either.
bool yrexIsHorizontalUnit(int code);
/// The name shown to users; empty for a code that is not in the table.
QString yrexUnitDisplayName(int code);

/// What stands behind numbers of the unit ("cm-1"); empty for units without dimension and for unknown codes.
QString yrexUnitShortName(int code);
/// The horizontal unit in which a place is told as well: nanometres for wavenumbers, wavenumbers for wavelengths;
/// negative for units without one.
int yrexSecondUnit(int code);

/// The name that scripts get; "AbsIntensity" for a code that is not in the table.
QString yrexUnitScriptName(int code);

/// The code of a script name, compared without regard to case. False, with `code` untouched, for an unknown text.
bool yrexUnitFromScriptName(const QString &text, int &code);

/// Converts an x value between units. Equal units, arbitrary units and the Raman shift leave it unchanged; 0 converts
/// to an infinity where the conversion divides. Field units are treated like wavenumbers.
double yrexConvertX(double value, int fromUnit, int toUnit);

/// Converts a wavenumber in 1/cm to micrometres (1) or nanometres (2); other units leave it unchanged.
double yrexWavenumberTo(double value, int unit);
