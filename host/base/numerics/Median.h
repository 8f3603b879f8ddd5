#pragma once

#include <cstddef>

namespace Utils {
namespace Algorithm {

/// The median of values[0..count-1], which stay as they are; for an even count the mean of the two middle values,
/// formed in double and rounded once. NaNs are left out; nothing but NaNs gives NaN, no values at all 0. Time O(count),
/// one scratch copy.
float calcMedian(const float *values, size_t count);

} // namespace Algorithm
} // namespace Utils
