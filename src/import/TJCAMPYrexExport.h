#pragma once

#include "jcamp/TJCAMPExportData.h"

class TYrexSpectrum;

/// A spectrum as JCAMP-DX carries it: its current values on its own even axis (the original x unit), with title,
/// origin, owner, date and peaks. `dataType` is one of Consts::JCAMP::Values, or null to choose it by the x unit; one
/// that the x unit rules out is passed over, since 1/CM alone does not tell a Raman shift from a wavenumber. Where the
/// public texts would not bring units or values back as they are, private labels state the units.
TJCAMPExportData jcampExportData(const TYrexSpectrum &spectrum, const char *dataType);
