// Where image and caption of an icon button go.
#pragma once

#include <cstdint>

#include "framework/Geometry.h"

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
