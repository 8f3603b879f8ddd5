#include "YrexStepWords.h"

QString YrexStepWords::displayMode(int mode)
{
    return displayModes().value(mode);
}

QStringList YrexStepWords::displayModes()
{
    return {"active only", "stacked", "overlay", "bitmap", "hidden lines", "queued", "none", "grouped"};
}

QStringList YrexStepWords::features()
{
    return {"integral labels", "integrals", "integral curves"};
}
