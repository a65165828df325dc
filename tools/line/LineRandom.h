// Small repeatable random numbers: the same seed gives the same people and the same noise with every compiler, which
// the distributions of the standard library don't promise.
#pragma once

#include <cstdint>

class CLineRandom {
public:
    explicit CLineRandom(std::uint64_t seed) : state(seed) {}

    // 0 to `bound` - 1; `bound` is above 0.
    std::uint32_t Below(std::uint32_t bound) { return static_cast<std::uint32_t>((Next() >> 32) % bound); }

    std::uint8_t Byte() { return static_cast<std::uint8_t>(Next() >> 56); }

private:
    // The SplitMix64 step: a counter with a mixing function behind it, so that any seed is a good one.
    std::uint64_t Next() {
        std::uint64_t mixed = state += 0x9E3779B97F4A7C15U;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31);
    }

    std::uint64_t state;
};
