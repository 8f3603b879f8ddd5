#include "TYrexRegionsAsMap.h"

#include "TYrexIntegrationRegions.h"
#include "TYrexSpectrum.h"
#include "TYrexStepValues.h"

#include <QCoreApplication>

namespace {

const char cNorm[] = "norm";
const char cIntegrals[] = "integrals";
const char cFrom[] = "fromPoint";
const char cTo[] = "toPoint";
const char cArea[] = "area";
const char cMaximum[] = "maximum";
const char cReference[] = "reference";
const char cMode[] = "mode";
const char cManual[] = "manual";
const char cAutomatic[] = "automatic";

QString tr(const char *text)
{
    return QCoreApplication::translate("YrexRegionsAsMap", text);
}

double computedArea(TYrexIntegrationRegion region, const TYrexSpectrum &spectrum)
{
    TYrexIntegrationRegions::calculateArea(spectrum, region, spectrum.yUnits());
    return region.area;
}

QVariantMap toldRegion(const TYrexIntegrationRegion &region, const TYrexSpectrum &spectrum)
{
    QVariantMap map{{cFrom, region.boundA}, {cTo, region.boundB}};
    if (region.area != computedArea(region, spectrum))
        map.insert(cArea, region.area);
    if (region.maximum != 0.0)
        map.insert(cMaximum, region.maximum);
    if (region.reference)
        map.insert(cReference, true);
    if (region.mode == TYrexIntegrationRegion::cAutomatic)
        map.insert(cMode, QString::fromLatin1(cAutomatic));
    else if (region.mode != TYrexIntegrationRegion::cManual)
        map.insert(cMode, region.mode); // whatever a file held
    return map;
}

/// False where there is a value that is no number.
bool readNumber(const QVariantMap &map, const char *name, double &number)
{
    return !map.contains(name) || YrexStepValues::readNumber(map.value(name), number);
}

bool readMode(const QVariant &given, qint32 &mode)
{
    if (!given.isValid())
        return true;
    if (YrexStepValues::readWhole(given, mode))
        return mode == qint8(mode); // as it is stored
    mode = given.toString() == cAutomatic ? TYrexIntegrationRegion::cAutomatic : TYrexIntegrationRegion::cManual;
    return given.toString() == cAutomatic || given.toString() == cManual;
}

QString readRegion(const QVariantMap &map, const TYrexSpectrum &spectrum, TYrexIntegrationRegion &region)
{
    if (!map.contains(cFrom) || !map.contains(cTo) || !readNumber(map, cFrom, region.boundA) ||
        !readNumber(map, cTo, region.boundB))
        return tr("expected objects with fromPoint and toPoint");
    region.area = computedArea(region, spectrum);
    const QVariant reference = map.value(cReference, false);
    if (!readNumber(map, cArea, region.area) || !readNumber(map, cMaximum, region.maximum))
        return tr("area and maximum are numbers");
    if (reference.userType() != QMetaType::Bool)
        return tr("reference is true or false");
    region.reference = reference.toBool();
    if (!readMode(map.value(cMode), region.mode))
        return tr("mode is \"manual\" or \"automatic\"");
    return QString();
}

QString firstUnknown(const QVariantMap &map, const QStringList &known)
{
    for (auto it = map.constBegin(); it != map.constEnd(); ++it) {
        if (!known.contains(it.key()))
            return tr("\"%1\" is no part of integrals").arg(it.key());
    }
    return QString();
}

} // namespace

QVariantMap YrexRegionsAsMap::told(const TYrexIntegrationRegions &regions, const TYrexSpectrum &spectrum)
{
    QVariantList list;
    for (const TYrexIntegrationRegion *region : regions)
        list.append(toldRegion(*region, spectrum));
    QVariantMap map{{cIntegrals, list}};
    if (regions.normValue() != 1.0)
        map.insert(cNorm, regions.normValue());
    return map;
}

QString YrexRegionsAsMap::read(const QVariant &map, const TYrexSpectrum &spectrum, TYrexIntegrationRegions &regions)
{
    const QVariantMap given = map.toMap();
    const QVariant list = given.value(cIntegrals);
    double norm = 1.0;
    if (list.userType() != QMetaType::QVariantList || !readNumber(given, cNorm, norm))
        return tr("expected an object with an array \"integrals\" and a number \"norm\"");
    QString problem = firstUnknown(given, {cIntegrals, cNorm});
    regions.setNormValue(norm);
    for (const QVariant &entry : list.toList()) {
        if (problem.isEmpty())
            problem = firstUnknown(entry.toMap(), {cFrom, cTo, cArea, cMaximum, cReference, cMode});
        TYrexIntegrationRegion region(TYrexIntegrationRegion::cManual);
        if (problem.isEmpty())
            problem = readRegion(entry.toMap(), spectrum, region);
        if (!problem.isEmpty())
            return problem;
        regions.append(region);
        regions.at(regions.count() - 1)->reference = region.reference; // the list makes the first one the reference
    }
    return problem;
}
