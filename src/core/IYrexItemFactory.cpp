#include "IYrexItemFactory.h"

namespace {
IYrexItemFactory *gCurrent = nullptr;
}

IYrexItemFactory *IYrexItemFactory::current()
{
    return gCurrent;
}

void IYrexItemFactory::setCurrent(IYrexItemFactory *factory)
{
    gCurrent = factory;
}
