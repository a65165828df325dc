// Colour arithmetic of the menus. Colours are 0x00BBGGRR.
#pragma once

#include <cstdint>

// Each of red, green and blue moved by a part of its way to 255, truncated. A factor outside of 0 (excluded) to 1 gives
// the colour unchanged.
std::uint32_t BlendedTowardWhite(std::uint32_t color, double factor);

// The same towards 0.
std::uint32_t BlendedTowardBlack(std::uint32_t color, double factor);

// A mixture: weight 0 gives `first`, 255 gives `second`. Truncated.
std::uint32_t MixedColor(std::uint32_t first, std::uint32_t second, std::uint8_t weight);
