#include "YrexSteps.h"

QVector<TStepKind> yrexMarkSteps()
{
    return yrexPeakSteps() + yrexIntegralSteps();
}
