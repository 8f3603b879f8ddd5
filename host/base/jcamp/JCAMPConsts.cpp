#include "jcamp/JCAMPConsts.h"

QByteArray Consts::JCAMP::written(const char *value)
{
    return value;
}
