#include "skin/StripLayout.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

constexpr std::size_t storedRectSize = 16;

constexpr int rowLeft = 30;
constexpr int rowTop = 2;

} // namespace

std::optional<int> SlotAt(int y, int pictureHeight) {
    const int slotHeight = pictureHeight / selectorSlots;
    if (y < 0 || y >= selectorLimit || slotHeight <= 0) return std::nullopt;
    return y / slotHeight;
}

CRect SlotRect(int slot, int width, int height) {
    return CRect::Sized(0, slot * height, width, height);
}

int FrameCount(int stripWidth, int frameWidth) {
    return frameWidth > 0 ? stripWidth / frameWidth : 0;
}

std::vector<CRect> ButtonRow(int count, int width, int height) {
    std::vector<CRect> row;
    row.reserve(static_cast<std::size_t>(std::max(count, 0)));
    for (int i = 0; i < count; ++i) row.push_back(CRect::Sized(rowLeft + i * width, rowTop, width, height));
    return row;
}

std::vector<CRect> WidenRow(std::vector<CRect> row, std::span<const int> textLengths, int averageWidth) {
    LONG left = rowLeft;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const int width = row[i].Width() + textLengths[i] * averageWidth;
        row[i].left = left;
        left += width;
        row[i].right = left;
    }
    return row;
}

void StoreRects(CArchive& archive, std::span<const CRect> rects) {
    archive.WriteCount(static_cast<std::uint32_t>(rects.size()));
    for (const CRect& rect : rects)
        for (const LONG edge : {rect.left, rect.top, rect.right, rect.bottom})
            archive.WriteDword(static_cast<std::uint32_t>(edge));
}

std::optional<std::vector<CRect>> LoadRects(CArchive& archive) {
    CArchive ahead = archive;
    const auto count = ahead.ReadCount();
    if (!count || ahead.GetRest() / storedRectSize < *count) return std::nullopt;
    std::vector<CRect> rects(*count);
    for (CRect& rect : rects)
        for (LONG* edge : {&rect.left, &rect.top, &rect.right, &rect.bottom})
            *edge = static_cast<LONG>(ahead.ReadDword().value_or(0));
    archive = ahead;
    return rects;
}
