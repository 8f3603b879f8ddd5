#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <vector>

/// What image filters share, also those outside of this library.
namespace Utils {
namespace Algorithm {
namespace Image {

/// A buffer that one call after the other uses. A large one is given back behind the call, so that a single huge
/// spectrum does not hold its memory for the life of the thread.
template <typename T>
class TScratch
{
public:
    explicit TScratch(std::vector<T> &buffer, std::size_t size)
        : fBuffer(buffer)
    {
        if (fBuffer.size() < size)
            fBuffer.resize(size);
    }
    ~TScratch()
    {
        if (fBuffer.size() * sizeof(T) > cKeptBytes)
            std::vector<T>().swap(fBuffer);
    }
    TScratch(const TScratch &) = delete;
    TScratch &operator=(const TScratch &) = delete;

    T *data() { return fBuffer.data(); }

private:
    static constexpr std::size_t cKeptBytes = 4 * 1024 * 1024;

    std::vector<T> &fBuffer;
};

inline int clampedIndex(int i, int n)
{
    return std::min(std::max(i, 0), n - 1);
}

inline bool allFinite(const float *values, std::size_t count)
{
    return std::all_of(values, values + count, [](float value) { return std::isfinite(value); });
}

/// Bit by bit; floats that compare equal may still give other bits further on.
inline bool areRowsEqual(const float *image, int width, int height)
{
    const std::size_t size = std::size_t(width);
    for (int y = 1; y < height; ++y)
        if (std::memcmp(image, image + std::size_t(y) * size, size * sizeof(float)) != 0)
            return false;
    return true;
}

/// Copies row 0 to all others.
inline void repeatFirstRow(float *image, int width, int height)
{
    for (int y = 1; y < height; ++y)
        std::copy_n(image, width, image + std::size_t(y) * std::size_t(width));
}

/// Reorders the values. An even count has the mean of its two middle values; none has 0.
inline double medianInPlace(double *values, std::size_t count)
{
    if (count == 0)
        return 0.0;
    double *middle = values + count / 2;
    std::nth_element(values, middle, values + count);
    return count % 2 == 1 ? *middle : 0.5 * (*std::max_element(values, middle) + *middle);
}

} // namespace Image
} // namespace Algorithm
} // namespace Utils
