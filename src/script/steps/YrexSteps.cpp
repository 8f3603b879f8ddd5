#include "YrexSteps.h"

QVector<TStepKind> yrexSteps()
{
    return yrexDataSteps() + yrexMarkSteps() + yrexParameterSteps() + yrexViewSteps() + yrexStackSteps();
}
