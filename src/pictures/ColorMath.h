// Colour arithmetic. Colours are 0x00BBGGRR, and what is no whole number is truncated in each part.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

// (30 red + 59 green + 11 blue) / 100.
std::uint8_t GrayOf(std::uint8_t red, std::uint8_t green, std::uint8_t blue);

// A pixel of 5 bits a colour, in grey.
std::uint16_t GrayOf555(std::uint16_t pixel);

// The grey of an icon's colour: 0.299 red + 0.587 green + 0.114 blue in each part; black stays black.
std::uint32_t IconGray(std::uint32_t color);

// A colour with the same amount added to red, green and blue: `shade`, cut so that none leaves 0 to 255, which keeps
// the hue. Nothing for a shade outside -255 to 255.
std::optional<std::uint32_t> ShiftedColor(std::uint32_t color, int shade);

// Each of red, green and blue moved by a part of its way to 255. A factor outside of 0 (excluded) to 1 gives the colour
// unchanged.
std::uint32_t BlendedTowardWhite(std::uint32_t color, double factor);

// The same towards 0.
std::uint32_t BlendedTowardBlack(std::uint32_t color, double factor);

// A mixture: weight 0 gives `first`, 255 gives `second`.
std::uint32_t MixedColor(std::uint32_t first, std::uint32_t second, std::uint8_t weight);

// A mixture of which `share`, from 0 to 1, is `first`.
std::uint32_t SharedColor(std::uint32_t first, std::uint32_t second, double share);

// Most colours that a palette of a picture keeps for itself; the system's own take the rest.
inline constexpr std::size_t reducedPaletteSize = 236;

// Which of up to 256 colour indices stay in a reduced palette, in index order, given how many pixels use each. Of the
// first indices, as many as are too many start out as dropped; each later index that is used less than one of these
// takes its place, so that rare colours go.
std::vector<std::size_t> KeptColors(std::span<const std::uint32_t> uses);
