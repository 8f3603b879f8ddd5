#include "YrexSteps.h"

QVector<TStepKind> yrexViewSteps()
{
    return {};
}
