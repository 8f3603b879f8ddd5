#pragma once

#include <cstdint>

/// Noise that is the same on every machine: plain integer steps and sums, no library in between.
///
/// The generator is SplitMix64 (G. L. Steele, D. Lea, C. H. Flood, OOPSLA 2014, doi:10.1145/2660193.2660195).
class TNoise
{
public:
    explicit TNoise(std::uint64_t seed)
        : fState(seed)
    {
    }

    /// Even in [0, 1).
    double uniform()
    {
        fState += 0x9E3779B97F4A7C15u;
        std::uint64_t z = fState;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return double((z ^ (z >> 31)) >> 11) / 9007199254740992.0; // 2^53
    }

    /// Nearly normal, mean 0, standard deviation 1, never beyond 6: the sum of twelve even numbers.
    double normal()
    {
        double sum = -6.0;
        for (int i = 0; i < 12; ++i)
            sum += uniform();
        return sum;
    }

private:
    std::uint64_t fState;
};
