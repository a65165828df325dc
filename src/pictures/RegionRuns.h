// The opaque runs of a picture, row by row: what a window region is made of.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "framework/Geometry.h"

// Which pixels count as transparent. Three bytes each, compared one by one in memory order (blue, green, red) with the
// colour's bytes from the lowest up.
struct TransparentRange {
    std::uint8_t low[3];
    std::uint8_t high[3];

    // From the colour up to the colour plus the tolerance, each byte capped at 255. Never below the colour.
    static TransparentRange From(std::uint32_t color, std::uint32_t tolerance);
    bool Contains(const std::uint8_t* pixel) const;
};

// A picture with 4 bytes a pixel. The rows lie in memory from the bottom one up, as in a device-independent bitmap;
// `stride` is the length of a row in bytes.
struct PixelRows {
    std::span<const std::uint8_t> bytes;
    int width;
    int height;
    std::size_t stride;

    const std::uint8_t* RowFromTop(int y) const {
        return bytes.data() + static_cast<std::size_t>(height - 1 - y) * stride;
    }
};

// A batch never holds more runs than this: older systems refuse larger region data.
inline constexpr std::size_t regionBatch = 2000;

// More boxes than this make no sensible window: systems take a time for its shape that grows with their square.
inline constexpr std::size_t mostOutlineBoxes = 1000;

// What is not transparent, with equal rows in one; where that makes more boxes than `mostOutlineBoxes`, the rows
// without their gaps.
std::vector<CRect> OutlineRuns(const PixelRows& picture, const TransparentRange& transparent);

// Hands out the runs of pixels that are not transparent, each one pixel high, from the picture's top row down and from
// left to right, in batches of exactly `regionBatch`, then the rest, which may be empty.
void ForEachRunBatch(const PixelRows& picture, const TransparentRange& transparent,
                     const std::function<void(const std::vector<CRect>& runs)>& take);
