#include "skin/StripLayout.h"

#include <cstddef>

namespace {

constexpr int rowLeft = 30;
constexpr int rowTop = 2;

} // namespace

std::optional<int> SlotAt(int y, int pictureHeight) {
    const int slotHeight = pictureHeight / selectorSlots;
    if (y < 0 || y >= selectorLimit || slotHeight <= 0) return std::nullopt;
    return y / slotHeight;
}

Box SlotBox(int slot, int width, int height) {
    return {0, slot * height, width, height};
}

int FrameCount(int stripWidth, int frameWidth) {
    return frameWidth > 0 ? stripWidth / frameWidth : 0;
}

std::vector<Box> ButtonRow(int count, int width, int height) {
    std::vector<Box> row;
    for (int i = 0; i < count; ++i) row.push_back({rowLeft + i * width, rowTop, width, height});
    return row;
}

std::vector<Box> WidenRow(std::vector<Box> row, std::span<const int> textLengths, int averageWidth) {
    int left = rowLeft;
    for (std::size_t i = 0; i < row.size(); ++i) {
        row[i].x = left;
        row[i].width += textLengths[i] * averageWidth;
        left += row[i].width;
    }
    return row;
}
