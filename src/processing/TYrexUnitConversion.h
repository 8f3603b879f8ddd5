#pragma once

#include <QVariantMap>

class TYrexSpectrum;

/// Converts y values in place between transmittance, percent transmittance and absorbance.
///
/// `sourceUnit` is the unit code of the values, `target` one of cToTransmittance, cToPercentTransmittance,
/// cToAbsorbance, cToReflectance and cToKubelkaMunk. Computed absorbances are held below `maxAbsorbance` and computed
/// transmittances above 10^-maxAbsorbance; a value that has no logarithm becomes `maxAbsorbance`. Values that are in
/// the target's unit already stay as they are, and the last two targets change no value: they only relabel.
/// False, with nothing changed, for a pair that has no conversion.
bool yrexConvertIntensity(double *y, int n, int sourceUnit, int target, double maxAbsorbance);

/// The unit code of a target; -1 for anything else.
int yrexTargetUnit(int target);

namespace TYrexUnitConversion {

/// The chain's step: converts the present data by the formula of the original y unit, then sets unit and label. A
/// refused conversion leaves data, unit and label.
void convertUnits(TYrexSpectrum &spectrum, const QVariantMap &action);

} // namespace TYrexUnitConversion
