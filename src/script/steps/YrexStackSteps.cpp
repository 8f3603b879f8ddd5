#include "YrexSteps.h"

QVector<TStepKind> yrexStackSteps()
{
    return {};
}
