#include "script/steps/HostSteps.h"

QVector<TStepKind> stackSteps()
{
    return {};
}
