// Where image and caption of an icon button go.
#pragma once

#include <cstdint>

#include "framework/Geometry.h"

enum class ImageAlign : std::uint8_t { Left = 0, Above = 1, Right = 2 };

// Space between edge and image where there is a caption, in pixels.
inline constexpr int imageMargin = 3;

struct ImagePlace {
    CPoint image;      // its top left corner
    CRect captionArea; // what the image leaves to the caption

    bool operator==(const ImagePlace&) const = default;
};

// `item` is the button's whole area, `clientRight` the right edge of its client area.
ImagePlace PlaceImage(const CRect& item, int clientRight, int imageWidth, int imageHeight, ImageAlign align,
                      bool hasCaption);
