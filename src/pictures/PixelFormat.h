// How the platform is told of a picture's pixels in memory.
#pragma once

#include <windows.h>

// Pixels as they are, the rows from the bottom one up, or with a negative height from the top one down. 32 bits a pixel
// are what every colour screen takes: blue, green, red, and a byte without a meaning. Colours or masks, where there are
// any, are the caller's to add behind the header.
inline BITMAPINFO PixelFormat(int width, int height, WORD bitsPerPixel = 32) {
    return {{sizeof(BITMAPINFOHEADER), width, height, 1, bitsPerPixel, BI_RGB, 0, 0, 0, 0, 0}, {}};
}
