#include "pictures/PictureFile.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

#include "framework/LittleEndian.h"

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

constexpr std::uint32_t fileHeaderSize = 14;
constexpr std::uint32_t coreHeaderSize = 12; // the oldest form, with 16-bit sizes
constexpr std::uint32_t infoHeaderSize = 40;
constexpr std::uint32_t mostPaletteColors = 256; // what the platform reads, whatever the header says

enum Compression : std::uint32_t { None = 0, RunLength8 = 1, RunLength4 = 2, BitFields = 3 };

struct BitmapShape {
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::int64_t bitsPerPixel = 0;
    std::uint32_t compression = None;
    std::uint64_t codedSize = 0;   // bytes of the pixels, where they are coded
    std::uint64_t headersSize = 0; // of all headers and masks
    std::uint64_t paletteSize = 0;
};

std::uint64_t ColorsOf(std::int64_t bitsPerPixel, std::uint32_t named) {
    if (named != 0) return std::min(named, mostPaletteColors);
    return bitsPerPixel <= 8 ? std::uint64_t{1} << bitsPerPixel : 0;
}

bool ReadShape(std::span<const std::uint8_t> header, BitmapShape& shape) {
    const std::uint64_t size = DwordAt(header, 14);
    if (size == coreHeaderSize) {
        shape.width = WordAt(header, 18);
        shape.height = WordAt(header, 20);
        shape.bitsPerPixel = WordAt(header, 24);
        shape.headersSize = fileHeaderSize + size;
        shape.paletteSize = ColorsOf(shape.bitsPerPixel, 0) * 3;
        return true;
    }
    if (size < infoHeaderSize || header.size() < fileHeaderSize + infoHeaderSize) return false;
    shape.width = static_cast<std::int32_t>(DwordAt(header, 18));
    shape.height = std::abs(std::int64_t{static_cast<std::int32_t>(DwordAt(header, 22))});
    shape.bitsPerPixel = WordAt(header, 28);
    shape.compression = DwordAt(header, 30);
    shape.codedSize = DwordAt(header, 34);
    const std::uint32_t masks = shape.compression == BitFields && size == infoHeaderSize ? 12 : 0;
    shape.headersSize = fileHeaderSize + size + masks;
    shape.paletteSize = ColorsOf(shape.bitsPerPixel, DwordAt(header, 46)) * 4;
    return true;
}

bool IsDepth(std::int64_t bitsPerPixel) {
    constexpr std::array<std::int64_t, 6> depths{1, 4, 8, 16, 24, 32};
    return std::find(depths.begin(), depths.end(), bitsPerPixel) != depths.end();
}

std::uint64_t StrideOf(std::int64_t width, std::int64_t bitsPerPixel) {
    return static_cast<std::uint64_t>((width * bitsPerPixel + 31) / 32 * 4);
}

bool FitsDepth(std::uint32_t compression, std::int64_t bitsPerPixel) {
    switch (compression) {
    case None:
        return IsDepth(bitsPerPixel);
    case RunLength8:
        return bitsPerPixel == 8;
    case RunLength4:
        return bitsPerPixel == 4;
    case BitFields:
        return bitsPerPixel == 16 || bitsPerPixel == 32;
    default:
        return false;
    }
}

// One image of an icon: the picture's pixels, and below them as many of a mask with one bit a pixel.
bool IsPlausibleIconImage(std::span<const std::uint8_t> image) {
    constexpr std::array<std::uint8_t, 8> pngSignature{0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A};
    if (image.size() < infoHeaderSize) return false;
    if (std::equal(pngSignature.begin(), pngSignature.end(), image.begin())) return true;
    const std::int64_t width = static_cast<std::int32_t>(DwordAt(image, 4));
    const std::int64_t height = static_cast<std::int32_t>(DwordAt(image, 8)) / 2;
    const std::int64_t bitsPerPixel = WordAt(image, 14);
    if (DwordAt(image, 0) != infoHeaderSize || DwordAt(image, 16) != None || !IsDepth(bitsPerPixel)) return false;
    if (width <= 0 || height <= 0 || width * height > mostPixels) return false;
    const std::uint64_t palette = ColorsOf(bitsPerPixel, DwordAt(image, 32)) * 4;
    const std::uint64_t rowBytes = StrideOf(width, bitsPerPixel) + StrideOf(width, 1);
    return infoHeaderSize + palette + rowBytes * static_cast<std::uint64_t>(height) <= image.size();
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
    constexpr std::size_t shortestHeaders = fileHeaderSize + coreHeaderSize;
    if (header.size() < shortestHeaders || header[0] != 'B' || header[1] != 'M') return false;
    BitmapShape shape;
    if (!ReadShape(header, shape) || !FitsDepth(shape.compression, shape.bitsPerPixel)) return false;
    const bool coded = shape.compression == RunLength8 || shape.compression == RunLength4;
    const std::int64_t most = coded ? mostCodedPixels : mostPixels;
    if (shape.width <= 0 || shape.height <= 0 || shape.width * shape.height > most) return false;
    const std::uint64_t offset = DwordAt(header, 10);
    // The pixels may overlap colours that nobody uses, but no header.
    if (offset < shape.headersSize || shape.headersSize + shape.paletteSize > fileSize || offset >= fileSize)
        return false;
    const std::uint64_t stride = StrideOf(shape.width, shape.bitsPerPixel);
    const std::uint64_t pixelBytes = coded ? shape.codedSize : stride * static_cast<std::uint64_t>(shape.height);
    return pixelBytes > 0 && pixelBytes <= fileSize - offset;
}

PlainLayout PlainLayoutOf(std::span<const std::uint8_t> header, std::uint64_t fileSize) {
    if (!IsPlausibleBitmap(header, fileSize)) return {};
    BitmapShape shape;
    ReadShape(header, shape);
    const std::uint32_t size = DwordAt(header, 14);
    constexpr std::uint32_t largestInfoHeader = 124;
    const bool plain = shape.compression == None || shape.compression == BitFields;
    if (!plain || size < infoHeaderSize || size > largestInfoHeader) return {};
    PlainLayout layout;
    layout.width = shape.width;
    layout.height = shape.height;
    layout.bitsPerPixel = shape.bitsPerPixel;
    layout.topDown = static_cast<std::int32_t>(DwordAt(header, 22)) < 0;
    layout.pixels = DwordAt(header, 10);
    layout.stride = static_cast<std::size_t>(StrideOf(shape.width, shape.bitsPerPixel));
    layout.colorsAreMasks = shape.compression == BitFields;
    // Masks stand behind the fields of the shortest header, be it in a longer one.
    layout.colors = fileHeaderSize + (layout.colorsAreMasks ? infoHeaderSize : size);
    if (layout.colorsAreMasks) layout.colorsSize = 12;
    if (shape.bitsPerPixel <= 8)
        layout.colorsSize = std::min(static_cast<std::size_t>(shape.paletteSize), std::size_t{4} << shape.bitsPerPixel);
    if (layout.colors + layout.colorsSize > header.size()) return {};
    return layout;
}

bool IsPlausibleIcon(std::span<const std::uint8_t> file) {
    constexpr std::size_t headerSize = 6, entrySize = 16;
    if (file.size() < headerSize || DwordAt(file, 0) != 0x00010000) return false;
    const std::size_t count = WordAt(file, 4);
    if (count == 0 || file.size() < headerSize + count * entrySize) return false;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint64_t size = DwordAt(file, headerSize + i * entrySize + 8);
        const std::uint64_t offset = DwordAt(file, headerSize + i * entrySize + 12);
        if (offset + size > file.size() ||
            !IsPlausibleIconImage(file.subspan(static_cast<std::size_t>(offset), static_cast<std::size_t>(size))))
            return false;
    }
    return true;
}
