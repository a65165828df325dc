// Colour arithmetic of the skin.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

// (30 red + 59 green + 11 blue) / 100, truncated.
std::uint8_t GrayOf(std::uint8_t red, std::uint8_t green, std::uint8_t blue);

// A pixel of 5 bits a colour, in grey.
std::uint16_t GrayOf555(std::uint16_t pixel);

// Most colours that a palette of a picture keeps for itself; the system's own take the rest.
inline constexpr std::size_t reducedPaletteSize = 236;

// Which of up to 256 colour indices stay in a reduced palette, in index order, given how many pixels use each. Of the
// first indices, as many as are too many start out as dropped; each later index that is used less than one of these
// takes its place, so that rare colours go.
std::vector<std::size_t> KeptColors(std::span<const std::uint32_t> uses);
