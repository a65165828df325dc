#include "menu/ResourceBitmap.h"

#include "framework/LittleEndian.h"

namespace {

constexpr std::size_t headerSize = 40;
constexpr std::size_t bitCountOffset = 14;
constexpr std::size_t colorsUsedOffset = 32;

} // namespace

unsigned BitmapColorCount(std::span<const std::byte> resource) {
    if (resource.size() < headerSize || DwordAt(resource, 0) != headerSize) return 0;
    if (const unsigned used = DwordAt(resource, colorsUsedOffset); used != 0) return used;
    const unsigned bits = WordAt(resource, bitCountOffset);
    return bits == 1 || bits == 4 || bits == 8 ? 1U << bits : 0;
}
