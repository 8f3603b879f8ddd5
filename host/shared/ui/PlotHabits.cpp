#include "ui/PlotHabits.h"

#include "settings/TDefaultsIni.h"

#include <QtGlobal>

namespace PlotHabits {

bool isWheelIntensity()
{
    return TDefaultsIni().value(cWheelKey, QString("x")).toString() == QLatin1String("intensity");
}

double boxThreshold()
{
    const double percent = TDefaultsIni().value(cBoxThresholdKey, cDefBoxThreshold).toDouble();
    return qBound(cLowestBoxThreshold, percent, cHighestBoxThreshold) / 100.0;
}

bool newItemsKeepFitting()
{
    return TDefaultsIni().value(cKeepFittingKey, false).toBool();
}

} // namespace PlotHabits
