// Looks for GDI objects that a process loses.
#pragma once

#include <vector>

#include <windows.h>

#include <gtest/gtest.h>

// How many GDI objects the process can still make, found by making them: not every system counts them.
inline std::size_t FreeGdiObjects() {
    std::vector<HRGN> regions;
    while (const HRGN region = ::CreateRectRgn(0, 0, 1, 1)) regions.push_back(region);
    for (const HRGN region : regions) ::DeleteObject(region);
    return regions.size();
}

// After a first round, which may fill what is kept for good, no further one may cost an object.
template <class Round>
void ExpectNoGdiObjectLost(int rounds, Round round) {
    round();
    const std::size_t before = FreeGdiObjects();
    for (int i = 0; i < rounds; ++i) round();
    EXPECT_EQ(FreeGdiObjects(), before) << "after " << rounds << " rounds";
}
