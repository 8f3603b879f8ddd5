#include "plot/TRange.h"

int TRange::compare(const TRange &region) const
{
    const TRange own = sorted();
    const TRange other = region.sorted();
    if (other.a >= own.a && other.b <= own.b)
        return 0;
    if (other.b <= own.a)
        return 1;
    if (other.a >= own.b)
        return 4;
    if (other.a <= own.a && other.b >= own.b)
        return 5;
    return other.a < own.a ? 2 : 3;
}
