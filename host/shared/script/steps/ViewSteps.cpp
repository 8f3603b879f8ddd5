#include "script/steps/HostSteps.h"

QVector<TStepKind> viewSteps()
{
    return {};
}
