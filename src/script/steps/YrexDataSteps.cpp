#include "YrexSteps.h"

QVector<TStepKind> yrexDataSteps()
{
    return {};
}
