// GDI objects of the process, for tests that look for leaks.
#pragma once

#include <vector>

#include <windows.h>

// How many GDI objects the process can still make, found by making them: not every system counts them.
inline std::size_t FreeGdiObjects() {
    std::vector<HRGN> regions;
    while (const HRGN region = ::CreateRectRgn(0, 0, 1, 1)) regions.push_back(region);
    for (const HRGN region : regions) ::DeleteObject(region);
    return regions.size();
}
