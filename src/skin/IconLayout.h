// Where image and caption of an icon button go, and the arithmetic of its colours.
#pragma once

#include <cstdint>
#include <optional>

#include "skin/Geometry.h"

enum class ImageAlign : std::uint8_t { Left = 0, Above = 1, Right = 2 };

// Space between edge and image where there is a caption, in pixels.
inline constexpr int imageMargin = 3;

struct ImagePlace {
    int x; // top left corner of the image
    int y;
    Box captionArea; // what the image leaves to the caption

    bool operator==(const ImagePlace&) const = default;
};

// `item` is the button's whole area, `clientRight` the right edge of its client area.
ImagePlace PlaceImage(const Box& item, int clientRight, int imageWidth, int imageHeight, ImageAlign align,
                      bool hasCaption);

// A colour (0x00BBGGRR) with the same amount added to red, green and blue: `shade`, cut so that none leaves 0 to 255,
// which keeps the hue. Nothing for a shade outside -255 to 255.
std::optional<std::uint32_t> ShiftedColor(std::uint32_t color, int shade);

// The grey of a picture's colour: the truncated 0.299 red + 0.587 green + 0.114 blue in each part; black stays black.
std::uint32_t IconGray(std::uint32_t color);
