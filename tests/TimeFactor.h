// How much slower than usual the machine is: the environment's QUORVANE_TEST_TIME_FACTOR, a whole number from 1, by
// which the tests multiply their deadlines and the times that they allow; 1 where it isn't set.
#pragma once

#include <algorithm>
#include <cstdlib>

inline unsigned TimeFactor() {
    static const char* const given = std::getenv("QUORVANE_TEST_TIME_FACTOR");
    static const unsigned factor = static_cast<unsigned>(std::max(1, given != nullptr ? std::atoi(given) : 1));
    return factor;
}
