#include "TJCAMPYrexInterpreter.h"

#include "TYrexUnits.h"
#include "jcamp/JCAMPConsts.h"
#include "jcamp/JCAMPUtils.h"
#include "jcamp/TJCAMPBlock.h"

using namespace Consts::JCAMP;
using Utils::JCAMP::unifiedFirstLine;

namespace {

const QList<const char *> &dataTypes()
{
    static const QList<const char *> cTypes{Values::INFRAREDSPECTRUM,
                                            Values::NEARINFRAREDSPECTRUM,
                                            Values::INFRAREDTRANSFORMEDSPECTRUM,
                                            Values::UVVISIBLESPECTRUM,
                                            Values::UVVISSPECTRUM,
                                            Values::RAMAN,
                                            Values::RAMANSPECTRUM,
                                            Values::ULTRAVIOLETSPECTRUM,
                                            Values::PEAKTABLE,
                                            Values::AVASOFT};
    return cTypes;
}

} // namespace

TJCAMPYrexInterpreter::TJCAMPYrexInterpreter(TJCAMPBlock *block)
    : TJCAMPDatasetInterpreter(block, dataTypes())
    , fXUnit(cUnitArbitrary)
    , fYUnit(cUnitArbitrary)
{
    // files of the Lambda series lack a data type that is known
    if (!(isValid() && fStrict) && unified(Params::SPECTROMETERDATASYSTEM) == "PERKINELMERLAMBDASERIESPECSS" && block &&
        block->hasLabel(Params::XYDATA))
        setDataLabel(Params::XYDATA);
    if (isValid())
        analyseUnits();
}

QByteArray TJCAMPYrexInterpreter::unified(const char *label) const
{
    bool found = false;
    return unifiedFirstLine(getString(label, found));
}

int TJCAMPYrexInterpreter::yUnitOf(const QByteArray &text)
{
    const QByteArray unit = unifiedFirstLine(text);
    if (unit.contains(Values::TRANSMITTANCE))
        return cUnitTransmittance;
    if (unit.contains(Values::REFLECTANCE))
        return cUnitReflectance;
    if (unit.contains(Values::ABSORBANCE))
        return cUnitAbsorbance;
    if (unit.contains("ARBITRARY"))
        return cUnitArbitrary;
    return unit.contains(Values::COUNTS) ? int(cUnitCounts) : int(cUnitArbitrary);
}

int TJCAMPYrexInterpreter::xUnitOf(const QByteArray &text, bool isRaman)
{
    const QByteArray unit = unifiedFirstLine(text);
    if (unit == Values::ONECM || unit == "CM1")
        return isRaman ? cUnitRamanShift : cUnitWavenumber;
    if (unit == "UM" || unit.contains("MICROMET") || unit.contains("(UM)"))
        return cUnitMicrometers;
    if (unit == "NM" || unit.contains("NANOMET") || unit.contains("(NM)"))
        return cUnitNanometers;
    return cUnitArbitrary;
}

bool TJCAMPYrexInterpreter::statedUnit(const char *label, int &unit) const
{
    bool found = false;
    const QByteArray text = getString((QByteArray("$") + label).constData(), found);
    return found && yrexUnitFromScriptName(QString::fromLatin1(text).trimmed(), unit);
}

void TJCAMPYrexInterpreter::analyseUnits()
{
    bool found = false;
    fYUnit = yUnitOf(getString(Params::YUNITS, found));
    fHasStatedYUnit = statedUnit(cStatedYUnit, fYUnit);
    if (separateDataBlock())
        return;
    const QByteArray type = unified(Params::DATATYPE);
    fXUnit = xUnitOf(getString(Params::XUNITS, found), type == Values::RAMANSPECTRUM || type == Values::RAMAN);
    statedUnit(cStatedXUnit, fXUnit);
}
