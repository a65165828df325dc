// The seed of a test's random operations: another one in each run, and told at once, since a test may end without a
// word.
#pragma once

#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

// What a failing run is run again with; for SCOPED_TRACE.
inline std::string SeedText(unsigned seed) {
    return "QUORVANE_TEST_SEED=" + std::to_string(seed);
}

// The one that the environment variable QUORVANE_TEST_SEED gives, else a new one.
inline unsigned TestSeed() {
    const char* const given = std::getenv("QUORVANE_TEST_SEED");
    const unsigned seed = given != nullptr ? static_cast<unsigned>(std::stoul(given)) : std::random_device{}();
    std::cout << SeedText(seed) << std::endl;
    return seed;
}
