#include "numerics/Median.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

float Utils::Algorithm::calcMedian(const float *values, size_t count)
{
    if (count == 0)
        return 0.0f;
    std::vector<float> scratch(values, values + count);
    // the selection needs an order, which NaNs have not
    scratch.erase(std::remove_if(scratch.begin(), scratch.end(), [](float value) { return std::isnan(value); }),
                  scratch.end());
    if (scratch.empty())
        return std::numeric_limits<float>::quiet_NaN();
    const auto middle = scratch.begin() + std::ptrdiff_t(scratch.size() / 2);
    std::nth_element(scratch.begin(), middle, scratch.end());
    if (scratch.size() % 2 == 1)
        return *middle;
    const float lower = *std::max_element(scratch.begin(), middle);
    return float((double(lower) + double(*middle)) / 2.0);
}
