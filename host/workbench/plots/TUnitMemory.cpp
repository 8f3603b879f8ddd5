#include "TUnitMemory.h"

#include "settings/TDefaultsIni.h"

#include <QFileInfo>

namespace {

constexpr char cUnitsKey[] = "Kelmora/Import/Units/"; // and the ending: the codes of x and y

} // namespace

namespace TUnitMemory {

QString endingOf(const QString &path)
{
    return QFileInfo(path).suffix().toLower();
}

bool find(const QString &ending, TUnitPair &units)
{
    const QStringList codes = TDefaultsIni().value(cUnitsKey + ending).toString().split(' ');
    bool isX = false, isY = false;
    units.fX = codes.value(0).toInt(&isX);
    units.fY = codes.value(1).toInt(&isY);
    return isX && isY;
}

void keep(const QString &ending, const TUnitPair &units)
{
    TDefaultsIni().setValue(cUnitsKey + ending, QString("%1 %2").arg(units.fX).arg(units.fY));
}

void forget(const QString &ending)
{
    TDefaultsIni().remove(cUnitsKey + ending);
}

QStringList endings()
{
    QStringList endings;
    for (const QString &key : TDefaultsIni().keys(cUnitsKey))
        endings.append(key.mid(int(qstrlen(cUnitsKey))));
    return endings;
}

} // namespace TUnitMemory
