// How many colours a bitmap resource has: those of 16 colours are drawn in the system's.
#pragma once

#include <cstddef>
#include <span>

// The count of the header (a BITMAPINFOHEADER): what it says itself, else 2, 16 or 256 for 1, 4 or 8 bits a pixel, else
// 0. Also 0 for fewer bytes than a header, and for a header that gives itself another size: CreateMappedBitmap
// reads as far as that says.
unsigned BitmapColorCount(std::span<const std::byte> resource);
