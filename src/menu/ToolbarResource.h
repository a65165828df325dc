// Toolbar resources (RT_TOOLBAR, 241) as bytes: version, image width, image height and item count, 16 bits each, then
// that number of 16-bit command ids. The bitmap resource of the same number holds the strip of images.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

// Of an image, in pixels, each way; as large as icons are.
inline constexpr int largestToolbarImage = 256;

struct ToolbarResource {
    int imageWidth; // pixels
    int imageHeight;
    std::vector<std::uint16_t> ids; // in the order of the buttons; 0 for a separator

    // The button of a command: its index in `ids`; -1 if it isn't on the toolbar, and for id 0.
    int ButtonIndex(unsigned id) const;
    // The place of a button's image in the strip: separators have none. -1 for a separator or an index outside.
    int ImageIndex(int button) const;
};

// Nothing for another version than 1, an image size of 0 or above largestToolbarImage, or a resource that is shorter
// than its count says. Never reads beyond the bytes.
std::optional<ToolbarResource> ParseToolbarResource(std::span<const std::byte> resource);
