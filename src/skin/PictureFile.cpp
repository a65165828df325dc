#include "skin/PictureFile.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

namespace {

struct KindMark {
    std::string_view text;
    PictureKind kind;
};

constexpr std::array<KindMark, 5> marks{{{".BMP", PictureKind::Bitmap},
                                         {".ICO", PictureKind::Icon},
                                         {".JPG", PictureKind::Jpeg},
                                         {".JPEG", PictureKind::Jpeg},
                                         {".GIF", PictureKind::Gif}}};

std::uint32_t ReadNumber(std::span<const std::uint8_t> bytes, std::size_t offset, std::size_t size) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size; ++i) value |= static_cast<std::uint32_t>(bytes[offset + i]) << (8 * i);
    return value;
}

constexpr std::uint32_t coreHeaderSize = 12; // the oldest form, with 16-bit sizes
constexpr std::uint32_t infoHeaderSize = 40;

struct BitmapShape {
    std::int64_t width;
    std::int64_t height;
    std::int64_t bitsPerPixel;
    std::uint32_t compression;
};

bool ReadShape(std::span<const std::uint8_t> header, BitmapShape& shape) {
    const std::uint32_t size = ReadNumber(header, 14, 4);
    if (size == coreHeaderSize) {
        shape = {ReadNumber(header, 18, 2), ReadNumber(header, 20, 2), ReadNumber(header, 24, 2), 0};
        return true;
    }
    if (size < infoHeaderSize || header.size() < 54) return false;
    const auto width = static_cast<std::int32_t>(ReadNumber(header, 18, 4));
    const auto height = static_cast<std::int32_t>(ReadNumber(header, 22, 4));
    shape = {width, std::abs(std::int64_t{height}), ReadNumber(header, 28, 2), ReadNumber(header, 30, 4)};
    return true;
}

} // namespace

PictureKind KindOfPath(std::string_view path) {
    std::string upper(path);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    for (const KindMark& mark : marks) {
        const std::size_t position = upper.find(mark.text);
        if (position != std::string::npos && position > 0) return mark.kind;
    }
    return PictureKind::Unknown;
}

bool IsPlausibleBitmap(std::span<const std::uint8_t> header, std::uint64_t fileSize) {
    constexpr std::size_t shortestFile = 26;
    if (header.size() < shortestFile || header[0] != 'B' || header[1] != 'M') return false;
    BitmapShape shape{};
    if (!ReadShape(header, shape)) return false;
    if (shape.width <= 0 || shape.height <= 0 || shape.width * shape.height > mostPixels) return false;
    const std::array<std::int64_t, 6> depths{1, 4, 8, 16, 24, 32};
    if (std::find(depths.begin(), depths.end(), shape.bitsPerPixel) == depths.end()) return false;
    const std::uint64_t offset = ReadNumber(header, 10, 4);
    if (offset >= fileSize) return false;
    const bool runLengthCoded = shape.compression == 1 || shape.compression == 2;
    if (runLengthCoded) return true;
    const auto stride = static_cast<std::uint64_t>((shape.width * shape.bitsPerPixel + 31) / 32 * 4);
    return stride * static_cast<std::uint64_t>(shape.height) <= fileSize - offset;
}
