// What kind of picture a path names, and whether a file is worth handing to the platform.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

enum class PictureKind : int { Bitmap = 0, Icon = 1, Jpeg = 2, Gif = 3, Unknown = 4 };

// By the first of ".BMP", ".ICO", ".JPG" or ".JPEG", ".GIF" that stands anywhere in the path but at its very start,
// without regard to case.
PictureKind KindOfPath(std::string_view path);

// No picture of a theme comes near this many pixels; a larger one is damaged or hostile and would cost seconds.
inline constexpr std::int64_t mostPixels = std::int64_t{16} * 1024 * 1024;
// The same for a run-length coded picture, of which no part can be read by itself.
inline constexpr std::int64_t mostCodedPixels = std::int64_t{4} * 1024 * 1024;

// Whether the file's headers describe an uncompressed or run-length coded bitmap of a sensible size whose pixels the
// file can hold. `header` is the file's beginning, at least 54 bytes of it where the file is that long.
bool IsPlausibleBitmap(std::span<const std::uint8_t> header, std::uint64_t fileSize);

// How a bitmap file holds its rows where it holds them as they are, with a header of today's form, so that each can be
// read by itself. Without a width for any other file.
struct PlainLayout {
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::int64_t bitsPerPixel = 0;
    bool topDown = false;
    std::size_t pixels = 0; // offsets and sizes in bytes
    std::size_t stride = 0;
    std::size_t colors = 0;
    std::size_t colorsSize = 0;
    bool colorsAreMasks = false;

    // Of a row counted from the picture's top.
    std::size_t OffsetOfRow(std::int64_t row) const {
        return pixels + static_cast<std::size_t>(topDown ? row : height - 1 - row) * stride;
    }
};

// As much of a file's beginning as a layout may refer to, colours included.
inline constexpr std::size_t largestPlainHeader = 14 + 124 + 256 * 4;

PlainLayout PlainLayoutOf(std::span<const std::uint8_t> header, std::uint64_t fileSize);

// Whether every image of an icon file, given whole, lies inside the file with all its pixels. Not every platform checks
// that before it reads them. An image may also be a PNG file.
bool IsPlausibleIcon(std::span<const std::uint8_t> file);
