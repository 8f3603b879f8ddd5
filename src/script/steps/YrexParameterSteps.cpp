#include "YrexSteps.h"

QVector<TStepKind> yrexParameterSteps()
{
    return {};
}
