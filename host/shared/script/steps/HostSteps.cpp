#include "script/steps/HostSteps.h"

QVector<TStepKind> hostSteps()
{
    return itemSteps() + pageSteps() + viewSteps() + stackSteps();
}
