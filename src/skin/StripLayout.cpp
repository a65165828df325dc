#include "skin/StripLayout.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

constexpr std::size_t storedBoxSize = 16;

constexpr int rowLeft = 30;
constexpr int rowTop = 2;

// Any four edges come back as they were, so the sums may wrap round.
Box BoxOfEdges(std::uint32_t left, std::uint32_t top, std::uint32_t right, std::uint32_t bottom) {
    return {static_cast<int>(left), static_cast<int>(top), static_cast<int>(right - left),
            static_cast<int>(bottom - top)};
}

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
    row.reserve(static_cast<std::size_t>(std::max(count, 0)));
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

void StoreBoxes(CArchive& archive, std::span<const Box> boxes) {
    archive.WriteCount(static_cast<std::uint32_t>(boxes.size()));
    for (const Box& box : boxes) {
        const auto left = static_cast<std::uint32_t>(box.x);
        const auto top = static_cast<std::uint32_t>(box.y);
        archive.WriteDword(left);
        archive.WriteDword(top);
        archive.WriteDword(left + static_cast<std::uint32_t>(box.width));
        archive.WriteDword(top + static_cast<std::uint32_t>(box.height));
    }
}

std::optional<std::vector<Box>> LoadBoxes(CArchive& archive) {
    CArchive ahead = archive;
    const auto count = ahead.ReadCount();
    if (!count || ahead.GetRest() / storedBoxSize < *count) return std::nullopt;
    std::vector<Box> boxes;
    boxes.reserve(*count);
    const auto next = [&] { return ahead.ReadDword().value_or(0); };
    while (boxes.size() < *count) {
        const std::uint32_t left = next();
        const std::uint32_t top = next();
        const std::uint32_t right = next();
        boxes.push_back(BoxOfEdges(left, top, right, next()));
    }
    archive = ahead;
    return boxes;
}
