#include "jcamp/JCAMPInspection.h"

TFileNode jcampInspection(const QString &)
{
    return TFileNode();
}
