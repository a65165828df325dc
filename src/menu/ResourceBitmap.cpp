#include "menu/ResourceBitmap.h"

#include <optional>

#include "framework/LittleEndian.h"

namespace {

constexpr std::size_t headerSize = 40;
constexpr std::size_t bitCountOffset = 14;
constexpr std::size_t colorsUsedOffset = 32;

unsigned WordAt(std::span<const std::byte> bytes, std::size_t offset) {
    return CLittleEndianReader(bytes.subspan(offset)).ReadWord().value_or(0);
}

} // namespace

unsigned BitmapColorCount(std::span<const std::byte> resource) {
    if (resource.size() < headerSize) return 0;
    const unsigned used = WordAt(resource, colorsUsedOffset) | WordAt(resource, colorsUsedOffset + 2) << 16;
    if (used != 0) return used;
    const unsigned bits = WordAt(resource, bitCountOffset);
    return bits == 1 || bits == 4 || bits == 8 ? 1U << bits : 0;
}
