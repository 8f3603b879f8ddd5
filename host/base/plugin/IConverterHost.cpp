#include "plugin/IConverterHost.h"

namespace {
IConverterHost *gCurrent = nullptr;
}

IConverterHost *IConverterHost::current()
{
    return gCurrent;
}

void IConverterHost::setCurrent(IConverterHost *host)
{
    gCurrent = host;
}
