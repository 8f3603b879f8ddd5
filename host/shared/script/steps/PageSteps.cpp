#include "script/steps/HostSteps.h"

QVector<TStepKind> pageSteps()
{
    return {};
}
