// How often a test repeats what may wear something out. An emulated machine is too slow for the whole number: the
// environment's QUORVANE_TEST_REPEAT_DIVISOR, a whole number from 1, takes its share; unset, nothing is taken.
#pragma once

#include <algorithm>
#include <cstdlib>

// At least 2, as what grows shows only from the second time on.
inline int Repeats(int usual) {
    static const char* const given = std::getenv("QUORVANE_TEST_REPEAT_DIVISOR");
    static const int divisor = std::max(1, given != nullptr ? std::atoi(given) : 1);
    return std::max(2, usual / divisor);
}
