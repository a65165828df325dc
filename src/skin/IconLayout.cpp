#include "skin/IconLayout.h"

#include <algorithm>
#include <array>

ImagePlace PlaceImage(const Box& item, int clientRight, int imageWidth, int imageHeight, ImageAlign align,
                      bool hasCaption) {
    const int centeredX = item.x + (item.width - imageWidth) / 2;
    const int centeredY = item.y + (item.height - imageHeight) / 2;
    Box caption = item;
    if (!hasCaption) return {centeredX, align == ImageAlign::Right ? item.y : centeredY, caption};
    switch (align) {
    case ImageAlign::Above:
        caption.y += imageHeight;
        caption.height -= imageHeight;
        return {centeredX, imageMargin, caption};
    case ImageAlign::Right:
        caption = {imageMargin, item.y, item.width - imageWidth - 2 * imageMargin, item.height};
        return {clientRight - imageWidth - imageMargin, centeredY, caption};
    default:
        caption.x += imageWidth + imageMargin;
        caption.width -= imageWidth + imageMargin;
        return {item.x + imageMargin, centeredY, caption};
    }
}

std::optional<std::uint32_t> ShiftedColor(std::uint32_t color, int shade) {
    if (shade < -255 || shade > 255) return std::nullopt;
    std::array<int, 3> parts{};
    for (std::size_t i = 0; i < parts.size(); ++i) parts[i] = static_cast<int>((color >> (8 * i)) & 0xFF);
    const auto [lowest, highest] = std::minmax_element(parts.begin(), parts.end());
    const int cut = std::clamp(shade, -*lowest, 255 - *highest);
    std::uint32_t shifted = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) shifted |= static_cast<std::uint32_t>(parts[i] + cut) << (8 * i);
    return shifted;
}

std::uint32_t IconGray(std::uint32_t color) {
    const double red = color & 0xFF;
    const double green = (color >> 8) & 0xFF;
    const double blue = (color >> 16) & 0xFF;
    const auto gray = static_cast<std::uint32_t>(0.299 * red + 0.587 * green + 0.114 * blue);
    return gray | gray << 8 | gray << 16;
}
